#pragma once

#include "EUnitsType.h"
#include "TNumberPad.h"
#include "TUnitsSelector.h"

class TEditWidget;
struct TEditItem;

/// The number pad for values with units: it is given and gives values in the default unit of their type, and
/// shows and takes them in the unit that the operator reads, or in the one chosen among those of a
/// TUnitsSelector. A button beside the value then names that unit.
///
/// Texts are made while the pad is shown, so that settings may come in any order before.
class COMMONUILIB_EXPORT TUnitsNumberPad : public TNumberPad
{
    Q_OBJECT

public:
    TUnitsNumberPad(QWidget* parent, ENumberPadType type);
    ~TUnitsNumberPad() override;

    /// \a value in the default unit.
    void SetValueDbl(double value) override;
    /// Ends a unit type.
    void SetSuffix(QString const& suffix) override;
    /// In the default unit, within the bounds if what is entered is within them. What was not changed, and
    /// the value that means an empty entry, come back to the last bit.
    double GetValueDbl() override;
    void SetIPAddress(QString const& address) override;
    /// The bounds in the unit of the pad.
    double GetMinimum() const override;
    double GetMaximum() const override;

    /// With \a density in kilograms for each litre, between volumes and masses.
    void SetValueDbl(double value, float density);
    /// As for all pads; \a emptyValue in the default unit.
    void AllowEmpty(bool allow, double emptyValue);
    /// Anything but a unit type changes nothing. As whatever changes the unit while the pad is shown, it puts
    /// the value that was set in place of what was typed.
    void SetUnitType(EUnitsType type, EUnitsContext context);
    /// As in TEditItem: decimals, or a TUnits::EPrecision. The pad allows 0 to 8 of them, which
    /// GetNumberOfDecimalPlaces() knows once it is shown. An entry of a valid selector goes first.
    void SetNumberOfDecimalPlaces(int places);
    /// The units to choose among. One that is not valid takes the button away and leaves its unit; the first
    /// valid one starts with the unit that the operator reads, where it has it.
    void SetUnitSelector(TUnitsSelector const& selector);
    /// Null until there was a valid selector. It lies on the parent of the pad, whose owner places it.
    TPushButton* GetUnitsButton() const;

    /// The unit of the pad; UNIT_NONE without one.
    EUnitsType DetermineActualUnit() const;
    /// From the default unit to that of the pad, and back.
    double GetValueInCurrentNumPadUnit(double value) const;
    double GetValueInDefaultNumPadUnit(double value) const;

public Q_SLOTS:
    /// Opens the list of the units over their button. The row that is touched is taken at once.
    void OnUnitsButtonClicked();
    /// Closes the list. The unit at \a index of the selector: the value that was set is shown anew in it, in
    /// place of what was typed. An index that does not exist changes no unit.
    void OnNewUnitsSelected(int index);
    /// The unit with which the list was opened.
    void OnUnitsCancelled();

protected:
    void showEvent(QShowEvent* event) override;
    void ProcessTextChange() override;
    void UpdateDecimalDotButton() override;
    void ShowValueAnew() override;

private:
    TUnitsSelectorProps const& SelectedEntry() const;
    EUnitsType DefaultUnit() const;
    QString SuffixOf(EUnitsType unit) const;
    void DetermineActualNumberOfDecimalPlaces(double value, EUnitsType unit);
    void UpdateDisplay();
    template<typename TChange>
    void ChangeUnit(TChange change);
    void StartSelector();
    void UpdateUnitsButton();
    void ShowUnitsButton();
    void MakeUnitsButton();
    TEditItem UnitsItem() const;
    void MakeUnitsEdit();
    void CloseUnitsEdit();

    EUnitsType m_UnitType = UNIT_NONE;
    EUnitsContext m_UnitsContext = UNITS_CONTEXT_GENERAL;
    QString m_PlainSuffix;
    double m_DefaultValue = 0.0;
    double m_DefaultEmptyValue = 0.0;
    bool m_IsValueWaiting = false; // to be shown: it was set while the pad was hidden
    float m_Density = 1.0F;
    int m_WantedDecimalPlaces = 0;
    TUnitsSelector m_Selector;
    QPointer<TPushButton> m_UnitsButton;
    QPointer<TEditWidget> m_UnitsEdit; // made for the first choice
    int m_SelectorIndex = -1;          // of the entry in force; -1 until there was a valid selector
};
