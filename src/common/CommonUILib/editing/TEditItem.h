#pragma once

#include "CommonUILibExport.h"
#include "ENumberPadType.h"
#include "EUnitsType.h"
#include "TEditContainer.h"
#include "TUnitsSelector.h"

#include <QString>
#include <QVector>

/// What TEditItem::kind says.
enum EEditItemKind : int
{
    EDIT_KIND_TEXT_LIST = 0,  ///< the value is an index into textItems
    EDIT_KIND_NUMERIC = 1,    ///< a number with bounds, increment and units
    EDIT_KIND_STEPPED = 2,    ///< one of discreteValues
    EDIT_KIND_OTHER = 3,      ///< edited by a widget of the owner
    EDIT_KIND_HIDDEN_LIST = 4 ///< a text list, each character shown as "*"
};

/// The step of plus and minus in one unit.
struct TUnitIncrement
{
    EUnitsType unit = UNIT_NONE;
    double increment = 1.0;
};

/// One editable value: its kind, range, units and list entries, and how it is to be edited. Values are those
/// of the model, in the default unit of unitType, unless a member says otherwise. A date is a Julian day
/// number, a time of day hours as a fraction.
///
/// A plain record, which is copied whole; nobody is told of a change.
struct COMMONUILIB_EXPORT TEditItem
{
    bool visible = false;                   ///< takes part in a property page
    int kind = EDIT_KIND_NUMERIC;           ///< EEditItemKind
    double minimum = 0.0;                   ///< of a list the lowest index
    double maximum = 0.0;                   ///< of a list the highest index
    bool allowEmpty = false;                ///< an empty entry on the pad is accepted
    double emptyValue = 0.0;                ///< stands for an empty entry and is shown as an empty text
    double value = 0.0;                     ///< of a list the index
    double increment = 0.0;                 ///< step of plus and minus, in display units
    QVector<TUnitIncrement> unitIncrements; ///< steps for particular display units, in place of increment
    int decimalPlaces = 0;                  ///< decimals shown, or a TUnits::EPrecision
    QString name;                           ///< label of the property
    QString suffix;                         ///< behind the value while unitType is UNIT_NONE
    EUnitsType unitType = UNIT_NONE;        ///< what the value measures; UNIT_NONE for a bare number
    /// What the value is about, which decides its display unit.
    EUnitsContext unitsContext = UNITS_CONTEXT_GENERAL;
    double density = 1.0;                    ///< kilograms for each litre; see UNITS_CONTEXT_GRAIN
    TEditContainerQString textItems;         ///< texts of a list by value
    QString ipAddress;                       ///< value of an item entered as an IP address
    TEditContainerBool itemVisibility{true}; ///< false hides a row of the list
    bool useNumberPad = false;               ///< edited on a TUnitsNumberPad
    bool inlineNumberPad = false;            ///< the pad always has its centred form
    /// What is entered. A pad keeps the one that it is made for.
    ENumberPadType numberPadType = NUMBER_PAD_DECIMAL;
    bool floatingButtons = false;                      ///< plus and minus beside the value button
    bool liveUpdates = false;                          ///< every keystroke on the pad is told
    bool multiSelect = false;                          ///< several rows of the list may be selected
    bool showSelection = false;                        ///< a multi-select button shows the selected texts
    bool showValueButton = true;                       ///< the value button lies over the source
    bool useButtonText = false;                        ///< the text is the button's, not that of a list entry
    bool showListTitle = false;                        ///< a list for one selection draws its title too
    int listItemWidth = 0;                             ///< pixels, for every row
    QString directory;                                 ///< its folders become rows of the list
    bool useIcons = false;                             ///< rows have icons
    TEditContainerQString iconNames;                   ///< icons of the rows
    bool (*isEditGuardConditionSatisfied)() = nullptr; ///< asked before an edit opens
    void (*doOnEditGuardConditionFailed)() = nullptr;  ///< called when the guard says no
    int fontSize = 0;                                  ///< pixels of the value button's font; 0 lets it fit
    TUnitsSelector unitsSelector;                      ///< units that the pad offers
    int padDecimalPlaces = -1;                         ///< decimals on the pad; -1 takes decimalPlaces
    QVector<double> discreteValues;                    ///< ascending, for EDIT_KIND_STEPPED

    /// True for the two kinds that are edited in a list.
    bool IsList() const;

    /// The bounds in the default unit and the step in display units, all taken as they are.
    void SetMinMaxInc(double min, double max, double inc);

    /// What the value measures and the decimals shown, a number or a TUnits::EPrecision. The pad's own
    /// decimals stay.
    void SetUnitAndDecimalPlaces(EUnitsType unit, int places);
};
