#pragma once

#include "CommonUILibExport.h"
#include "ENumberPadType.h"
#include "TWindow.h"

#include <QPointer>
#include <QString>

#include <array>

class QGridLayout;
class TButtonSurface;
class TKey;
class TMessageDialog;
class TPushButton;

/// The on-screen pad on which the operator enters a number, a time, a date or an IP address. It keeps what is
/// typed, shows by its keys what may follow, checks the entry on the tick key, and tells the result by a
/// signal. An entry that cannot be taken brings up a message, and the pad stays up. For values with units see
/// TUnitsNumberPad, for texts TKeyboard.
///
/// A number is an integer while there are no decimal places. A time is hours as a fraction, a date a Julian
/// day number. The first key replaces the value that is shown; backspace edits it, and the sign key negates
/// it and then waits for the first digit.
///
/// The owner places and shows the pad, which takes no focus and starts hidden, in its compact form. A slot of
/// any of its signals may delete it, but for a NewText() that comes while it is being shown: deleteLater()
/// does there. GUI thread only.
class COMMONUILIB_EXPORT TNumberPad : public TWindow
{
    Q_OBJECT

public:
    /// An unknown \a type counts as NUMBER_PAD_DECIMAL.
    TNumberPad(QWidget* parent, ENumberPadType type);
    ~TNumberPad() override;

    /// \name Value
    /// @{
    /// In hours. A time under the 12-hour clock has am or pm. The minutes are rounded and never carry over to
    /// the hours: 7.999 is shown as 7:60. What is not finite counts as 0.
    virtual void SetValueTime(double value);
    /// A day that no calendar has is shown as "---".
    virtual void SetValueDate(double value);
    /// The same as SetValue() here.
    virtual void SetValueDbl(double value);
    /// What stands behind the entry, with a blank that does not break between them unless it is a unit that
    /// requires none.
    virtual void SetSuffix(QString const& suffix);
    /// What is entered now, in bounds or not. Without an entry it is the value that was set, and what is no
    /// time or no date leaves it as it is.
    virtual double GetValueDbl();
    /// Any text; it is checked when the operator accepts it.
    virtual void SetIPAddress(QString const& address);
    /// Presses the tick key, or the cross key. Neither tells the wheel to go anywhere.
    KVN::MMICapableWidget* OnMMIEnter() override;
    bool OnMMIBack() override;
    /// As SetBounds() had it.
    virtual double GetMinimum() const;
    virtual double GetMaximum() const;

    void SetValue(double value);
    /// Decimal places and value at once.
    void SetBehavior(double value, int decimals);
    /// The values that are accepted, from 0 to the largest float at first. The wrong way round they mean the
    /// same; what is not a number is no bound.
    void SetBounds(double min, double max);
    /// Whether an entry without a character is accepted, which then means \a emptyValue. Such a value is
    /// shown as no character.
    void AllowEmpty(bool allow, double emptyValue);
    /// How many digits may stand behind the decimal point, 0 at first; a negative number counts as 0.
    void SetNumberOfDecimalPlaces(int places);
    int GetNumberOfDecimalPlaces() const;
    /// Whether the next key replaces the whole entry.
    void SetClearOnFirstEntry(bool clear);
    /// @}

    /// \name Form
    /// @{
    /// With \a showField the centred form, with a field for the entry and on request keys for plus and minus;
    /// else the compact one, with neither. The pad takes the size of its keys at once.
    void SetInlineOptions(bool showField, bool showIncDec);
    void SetIncDecEnabled(bool inc, bool dec);
    /// @}

    /// Shows a text in the field and emits the signal of the same name.
    /// @{
    void SetNewText(QString const& text);
    void SetNewValueDbl(double value);
    void SetNewIPAddressValue(QString const& address);
    /// @}

    /// Leaves the pad hidden.
    void Setup() override;

public Q_SLOTS:
    /// \name The keys
    /// @{
    /// \a id is the digit.
    void OnDigit(int id);
    void OnBackspace();
    void OnDecimalPoint();
    void OnSign();
    void OnColon();
    void OnAMandPM();
    void OnForwardSlash();
    void OnIPAddressDot();
    void OnCancel() override;
    /// Checks the entry and emits it, or says what is wrong with it.
    void OnOK();
    /// @}

Q_SIGNALS:
    /// The entry was accepted; the pad is still up. A number that is out of the bounds by less than 0.00001
    /// comes as it was typed; one that only prints like a bound comes as that bound.
    void NewValueDbl(double value);
    /// What is shown has changed, also while the operator types. After NewValueDbl() the entry follows once
    /// more, without its suffix.
    void NewText(QString const& text);
    /// The operator gave up; the entry is left.
    void Cancel();
    /// The address was accepted, each number without leading zeroes; the pad is still up.
    void NewIPAddressValue(QString const& address);
    void IncrementPressed();
    void DecrementPressed();

protected:
    /// Both ends belong to it.
    struct TRange
    {
        double low;
        double high;
    };

    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    /// The entry has changed and is not shown yet. The base does nothing.
    virtual void ProcessTextChange();
    /// \name Reading the entry
    /// Each takes the entry over into the value, or notes why it cannot.
    /// @{
    virtual void SetNumericValue();
    virtual void SetNumericTimeValue();
    virtual void SetNumericDateValue();
    /// @}
    /// Tells the operator the bounds; the next key then starts anew.
    virtual void OnOutOfRange();
    /// The same with \a message.
    virtual void OnOutOfRangeTimeBased(QString message);
    /// Whether the key for the decimal point is alive. Only for numbers.
    virtual void UpdateDecimalDotButton();
    /// The operator reads values otherwise from now on: shows the value that was set, in place of what was
    /// typed. Only while the pad is shown.
    virtual void ShowValueAnew();

    ENumberPadType GetPadType() const;
    /// The entry without suffix.
    QString GetEntry() const;
    /// Whether the entry is what was typed. Not so after the sign key alone, which turns the value that is
    /// shown.
    bool IsBeingTyped() const;
    /// The entry as a number; 0 if it is none.
    double GetNumericValueFromText() const;
    bool IsEmptyAllowed() const;
    /// From GetMinimum() to GetMaximum(), the right way round.
    TRange Bounds() const;
    /// Whether the entry has room for a decimal point: it takes decimals, and has none that was typed.
    bool MayTypeDecimalPoint() const;
    void SetDecimalPointEnabled(bool enabled);
    /// Types \a character at the end, with \a clearFirst in place of a value that is only shown. A minus
    /// turns the sign, the character 7 empties the entry, and the null character types nothing.
    void AddCharacter(QChar character, bool clearFirst);

private Q_SLOTS:
    void OnUnitSettingsChanged();

private:
    enum EKeyId
    {
        PAD_KEY_BACKSPACE = 10,
        PAD_KEY_MINUS = 11,
        PAD_KEY_PLUS = 12,
        PAD_KEY_SEPARATOR = 13, ///< point, colon or slash
        PAD_KEY_EXTRA = 14,     ///< sign, or am and pm
        PAD_KEY_CANCEL = 15,
        PAD_KEY_OK = 16,
        PAD_KEY_COUNT = 17
    };
    struct TKeysOfType;
    struct TCell;
    struct TMessage;

    static bool Is24HourClock();

    TKeysOfType const& KeysOfType() const;
    TKey* MakeKey(int id, QChar character, QString const& icon);
    void MakeDigits();
    void MakeEditKeys();
    void MakeKeysOfType();
    void MakeEndKeys();
    void MakeField();
    void MakeLayouts();
    void Place(QGridLayout& grid, TCell const& cell);
    void PlaceFirstRow(QGridLayout& grid, bool showIncDec);
    void FitToKeys();

    void ShowEntry();
    void ShowEntryWithoutHalfDay();
    void ShowInField(QString const& text);
    void SetStringValue();
    void ClearTextIfFirstEntry();
    void InvertSign();
    void UpdateKeysAfterTyping();
    void ResetDigitsAndDecimalButtons();
    void UpdateDigitButtons();
    void UpdateColonButton();
    void UpdateHalfDayButton();

    QString Printed(double value) const;
    bool PrintsLikeABound(TRange const& bounds) const;
    bool IsWithinBounds() const;
    void AcceptNumber();
    void EmitNumber();
    void AcceptTime();
    void AcceptDate();
    void AcceptIPAddress();
    void ReadClock();
    void CheckClock();
    bool IsDayWithinBounds() const;
    void ApplyHalfDay();
    void ReadDate();
    static int FaultOfDate(int year, int month, int day);
    bool ValidateIPAddress();
    void RefuseFormOfAddress();
    void ShowMessage(TMessage const& message);
    void ShowBounds(QString const& low, QString const& high);

    double m_Minimum = 0.0;
    double m_Maximum;
    bool m_AllowEmpty = false;
    double m_EmptyValue = 0.0;
    QPointer<TMessageDialog> m_ErrorDialog; // made for the first message
    std::array<TKey*, PAD_KEY_COUNT> m_Keys = {};
    int m_TimeError = 0;
    int m_DateError = 0;
    ENumberPadType const m_PadType;
    int m_DecimalPlaces = 0;
    QString m_Text;
    bool m_EntryStarted = false;
    double m_Value = 0.0;
    int m_FractionDigits = -1;
    QString m_AmPm;
    QString m_Suffix;
    bool m_ClearOnFirstEntry = true;
    TPushButton* m_DisplayField = nullptr;
    TButtonSurface* m_Surface;
};
