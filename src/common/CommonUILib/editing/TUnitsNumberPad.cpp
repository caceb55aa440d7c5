#include "TUnitsNumberPad.h"

#include "PixmapNames.h"
#include "TEditItem.h"
#include "TEditWidget.h"
#include "TPushButton.h"
#include "TUnitAbbreviations.h"
#include "TUnits.h"

#include <algorithm>

namespace
{
constexpr int MostDecimals = 8;
// A rate with more digits before the point has none behind it.
constexpr double LargestRateWithDecimals = 99.0;

bool IsVolumeRate(EUnitsType unit)
{
    return unit == UNIT_TYPE_VOLUME_RATE || unit == UNIT_LITRES_PER_HECTARE;
}
} // namespace

TUnitsNumberPad::TUnitsNumberPad(QWidget* parent, ENumberPadType type)
    : TNumberPad(parent, type)
{
}

TUnitsNumberPad::~TUnitsNumberPad()
{
    delete m_UnitsEdit.data();
    delete m_UnitsButton.data();
}

void TUnitsNumberPad::SetValueDbl(double value)
{
    SetValueDbl(value, 1.0F);
}

void TUnitsNumberPad::SetValueDbl(double value, float density)
{
    m_DefaultValue = value;
    m_Density = density;
    m_IsValueWaiting = true;
    UpdateDisplay();
}

void TUnitsNumberPad::SetSuffix(QString const& suffix)
{
    ChangeUnit(
        [this, &suffix]
        {
            m_UnitType = UNIT_NONE;
            m_UnitsContext = UNITS_CONTEXT_GENERAL;
            m_PlainSuffix = suffix;
        });
}

void TUnitsNumberPad::AllowEmpty(bool allow, double emptyValue)
{
    m_DefaultEmptyValue = emptyValue;
    TNumberPad::AllowEmpty(allow, GetValueInCurrentNumPadUnit(emptyValue));
}

void TUnitsNumberPad::SetIPAddress(QString const& address)
{
    TNumberPad::SetIPAddress(address);
    update();
}

// Each way loses some last bits: they must neither change a value that was not edited nor carry one over a
// bound that it keeps in the unit of the pad.
double TUnitsNumberPad::GetValueDbl()
{
    if (m_IsValueWaiting)
        return m_DefaultValue;
    double const shown = TNumberPad::GetValueDbl();
    if (shown == GetValueInCurrentNumPadUnit(m_DefaultValue))
        return m_DefaultValue;
    if (IsEmptyAllowed() && shown == GetValueInCurrentNumPadUnit(m_DefaultEmptyValue))
        return m_DefaultEmptyValue;
    double const value = GetValueInDefaultNumPadUnit(shown);
    double const low = std::min(TNumberPad::GetMinimum(), TNumberPad::GetMaximum());
    double const high = std::max(TNumberPad::GetMinimum(), TNumberPad::GetMaximum());
    TRange const bounds = Bounds();
    return shown >= bounds.low && shown <= bounds.high ? qBound(low, value, high) : value;
}

double TUnitsNumberPad::GetMinimum() const
{
    return GetValueInCurrentNumPadUnit(TNumberPad::GetMinimum());
}

double TUnitsNumberPad::GetMaximum() const
{
    return GetValueInCurrentNumPadUnit(TNumberPad::GetMaximum());
}

void TUnitsNumberPad::SetUnitType(EUnitsType type, EUnitsContext context)
{
    if (type <= UNIT_NONE || type >= UNIT_NUMBER_END)
        return;
    ChangeUnit(
        [this, type, context]
        {
            m_UnitType = type;
            m_UnitsContext = context;
        });
}

// What is typed would be taken in a unit that the operator has not seen.
template<typename TChange>
void TUnitsNumberPad::ChangeUnit(TChange change)
{
    EUnitsType const unit = DetermineActualUnit();
    EUnitsType const defaultUnit = DefaultUnit();
    QString const suffix = SuffixOf(unit);
    change();
    if (DetermineActualUnit() != unit || DefaultUnit() != defaultUnit ||
        SuffixOf(DetermineActualUnit()) != suffix)
        UpdateDisplay();
}

void TUnitsNumberPad::SetNumberOfDecimalPlaces(int places)
{
    m_WantedDecimalPlaces = places;
}

void TUnitsNumberPad::SetUnitSelector(TUnitsSelector const& selector)
{
    ChangeUnit(
        [this, &selector]
        {
            m_Selector = selector;
            StartSelector();
            UpdateUnitsButton();
            ShowUnitsButton();
        });
}

void TUnitsNumberPad::StartSelector()
{
    if (!m_Selector.IsValid() || m_SelectorIndex != -1)
        return;
    EUnitsType const read = TUnits::DetermineActualUnitFromUnitsType(m_UnitType, m_UnitsContext);
    auto const& units = qAsConst(m_Selector.units);
    auto const found = std::find_if(units.begin(), units.end(),
                                    [read](TUnitsSelectorProps const& entry) { return entry.unit == read; });
    m_SelectorIndex = found == units.end() ? 0 : int(found - units.begin());
}

TPushButton* TUnitsNumberPad::GetUnitsButton() const
{
    return m_UnitsButton;
}

// Only with a valid selector. The index may be that of a longer one that was there before.
TUnitsSelectorProps const& TUnitsNumberPad::SelectedEntry() const
{
    return m_Selector.units.at(m_SelectorIndex < m_Selector.units.size() ? m_SelectorIndex : 0);
}

EUnitsType TUnitsNumberPad::DefaultUnit() const
{
    return TUnits::DetermineDefaultUnitFromUnitsType(m_UnitType, m_UnitsContext);
}

EUnitsType TUnitsNumberPad::DetermineActualUnit() const
{
    return m_Selector.IsValid() ? SelectedEntry().unit
                                : TUnits::DetermineActualUnitFromUnitsType(m_UnitType, m_UnitsContext);
}

double TUnitsNumberPad::GetValueInCurrentNumPadUnit(double value) const
{
    return TUnits::ConvertUnit(value, DefaultUnit(), DetermineActualUnit(), double(m_Density));
}

double TUnitsNumberPad::GetValueInDefaultNumPadUnit(double value) const
{
    return TUnits::ConvertUnit(value, DetermineActualUnit(), DefaultUnit(), double(m_Density));
}

void TUnitsNumberPad::DetermineActualNumberOfDecimalPlaces(double value, EUnitsType unit)
{
    int places = m_Selector.IsValid() ? SelectedEntry().decimalPlaces : m_WantedDecimalPlaces;
    if (places == TUnits::DEFAULT_PRECISION)
        places = TUnits::GetDefaultPrecision(unit);
    else if (places == TUnits::DYNAMIC_PRECISION)
        places = TUnits::GetDynamicPrecision(value);
    TNumberPad::SetNumberOfDecimalPlaces(qBound(0, places, MostDecimals));
}

QString TUnitsNumberPad::SuffixOf(EUnitsType unit) const
{
    return unit == UNIT_NONE ? m_PlainSuffix : TUnitAbbreviations::UnitAbbreviations[unit];
}

// The suffix comes last, since it shows the value again, now with its decimals.
void TUnitsNumberPad::UpdateDisplay()
{
    if (!isVisible())
        return;
    UpdateUnitsButton();
    m_IsValueWaiting = false;
    TNumberPad::AllowEmpty(IsEmptyAllowed(), GetValueInCurrentNumPadUnit(m_DefaultEmptyValue));
    double const shown = GetValueInCurrentNumPadUnit(m_DefaultValue);
    EUnitsType const unit = DetermineActualUnit();
    QPointer<TUnitsNumberPad> const self(this);
    TNumberPad::SetValueDbl(shown);
    if (!self)
        return;
    DetermineActualNumberOfDecimalPlaces(shown, unit);
    TNumberPad::SetSuffix(SuffixOf(unit));
    if (self)
        update();
}

void TUnitsNumberPad::ShowValueAnew()
{
    UpdateDisplay();
}

void TUnitsNumberPad::showEvent(QShowEvent* event)
{
    QPointer<TUnitsNumberPad> const self(this);
    UpdateDisplay();
    if (self)
        TNumberPad::showEvent(event);
}

// The larger the number that is typed, the fewer digits may follow its point.
void TUnitsNumberPad::ProcessTextChange()
{
    if (m_WantedDecimalPlaces == TUnits::DYNAMIC_PRECISION && GetPadType() == NUMBER_PAD_DECIMAL)
        DetermineActualNumberOfDecimalPlaces(GetNumericValueFromText(), DetermineActualUnit());
}

void TUnitsNumberPad::UpdateDecimalDotButton()
{
    if (GetPadType() != NUMBER_PAD_DECIMAL)
        return;
    bool enabled = MayTypeDecimalPoint();
    QString const entry = GetEntry();
    // What has a point already is no integer, and is replaced by what is typed.
    if (IsVolumeRate(m_UnitType) && !entry.contains(TUnits::DisplayableDecimalPointChar()))
        enabled = enabled && entry.toDouble() <= LargestRateWithDecimals;
    SetDecimalPointEnabled(enabled);
}

void TUnitsNumberPad::UpdateUnitsButton()
{
    if (!m_Selector.IsValid())
        return;
    if (m_SelectorIndex >= m_Selector.units.size())
        m_SelectorIndex = 0;
    if (!m_UnitsButton)
        MakeUnitsButton();
    if (m_UnitsButton)
        m_UnitsButton->SetText(TUnitAbbreviations::UnitAbbreviations[SelectedEntry().unit], QString(), false,
                               QString(), false);
}

void TUnitsNumberPad::ShowUnitsButton()
{
    if (!m_UnitsButton)
        return;
    if ((m_Selector.flags & UNIT_SELECTOR_FIXED_WIDTH) != 0)
        m_UnitsButton->setFixedWidth(qMax(0, m_Selector.buttonWidth));
    m_UnitsButton->setVisible(m_Selector.IsValid());
}

// A pad of the screen has no parent while it is hidden, and a button without one would be a window of its
// own: it is made when the pad is shown.
void TUnitsNumberPad::MakeUnitsButton()
{
    if (!parentWidget())
        return;
    m_UnitsButton = new TPushButton(parentWidget(), QString(), PixmapNames::NewStandardButton,
                                    PixmapNames::NewStandardButtonSelected, -1, QString());
    connect(m_UnitsButton.data(), &QAbstractButton::clicked, this, &TUnitsNumberPad::OnUnitsButtonClicked);
    ShowUnitsButton();
}

void TUnitsNumberPad::OnUnitsButtonClicked()
{
    if (!m_Selector.IsValid() || !m_UnitsButton)
        return;
    TEditItem const item = UnitsItem();
    if (m_UnitsEdit)
        m_UnitsEdit->RefreshProperties(&item);
    else
        MakeUnitsEdit();
    m_UnitsEdit->SetCurrentValue(m_SelectorIndex);
    m_UnitsEdit->SetPosition(m_UnitsButton);
    m_UnitsEdit->Open();
}

TEditItem TUnitsNumberPad::UnitsItem() const
{
    TEditItem item;
    item.kind = EDIT_KIND_TEXT_LIST;
    item.SetMinMaxInc(0, m_Selector.units.size() - 1, 1);
    item.value = m_SelectorIndex;
    for (int i = 0; i < m_Selector.units.size(); ++i)
        item.textItems.setAt(i, TUnitAbbreviations::UnitAbbreviations[m_Selector.units.at(i).unit]);
    return item;
}

// The wheel takes a row by the list's button for it.
void TUnitsNumberPad::MakeUnitsEdit()
{
    TEditItem const item = UnitsItem();
    m_UnitsEdit = new TEditWidget(nullptr, &item);
    connect(m_UnitsEdit.data(), &TEditWidget::MouseReleased, this, &TUnitsNumberPad::OnNewUnitsSelected);
    connect(m_UnitsEdit.data(), &TEditWidget::NewValue, this,
            [this](double index) { OnNewUnitsSelected(int(index)); });
    connect(m_UnitsEdit.data(), &TEditWidget::NumberPadCancelled, this, &TUnitsNumberPad::OnUnitsCancelled);
}

void TUnitsNumberPad::OnUnitsCancelled()
{
    if (m_UnitsEdit)
        OnNewUnitsSelected(int(m_UnitsEdit->GetCurrentValue()));
}

void TUnitsNumberPad::CloseUnitsEdit()
{
    if (m_UnitsEdit)
        m_UnitsEdit->Close();
}

void TUnitsNumberPad::OnNewUnitsSelected(int index)
{
    CloseUnitsEdit();
    bool const isUnit = m_Selector.IsValid() && index >= 0 && index < m_Selector.units.size();
    if (!isUnit || index == m_SelectorIndex)
        return;
    m_SelectorIndex = index;
    UpdateDisplay();
}
