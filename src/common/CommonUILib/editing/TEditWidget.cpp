#include "TEditWidget.h"

#include "MainScreen.h"
#include "Metrics.h"
#include "PixmapNames.h"
#include "TListControl.h"
#include "TPushButton.h"
#include "TScreen.h"
#include "TUnits.h"
#include "TUnitSettings.h"
#include "TUnitsNumberPad.h"

#include <QCoreApplication>
#include <QDir>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

namespace
{
constexpr int DefaultTextAlignment = int(Qt::AlignLeft) | int(Qt::AlignVCenter);
constexpr int DefaultMinFontSize = 10;
constexpr int RepeatDelay = 250;
constexpr int RepeatInterval = 100;
constexpr int ClickTime = 100;
// Bounds that a module got wrong must not fill the memory.
constexpr int MostEntries = 200000;

// The index that a value stands for.
int IndexOf(double value)
{
    if (std::isnan(value))
        return 0;
    return int(
        qBound(double(std::numeric_limits<int>::min()), value, double(std::numeric_limits<int>::max())));
}

// What is not a number counts as 0.
double Held(double low, double value, double high)
{
    return qBound(low, std::isnan(value) ? 0.0 : value, high);
}

bool HasSteps(TEditItem const& item)
{
    return item.kind == EDIT_KIND_STEPPED && !item.discreteValues.isEmpty();
}
} // namespace

TEditWidget::TEditWidget(QWidget* parent, TEditItem const* item)
    : QWidget(parent == MainScreen ? nullptr : parent, Qt::SubWindow | Qt::FramelessWindowHint)
    , m_TextAlignment(DefaultTextAlignment)
    , m_Field(new QWidget(this))
    , m_ValueButton(new TPushButton(this, -1, QString()))
    , m_ListOk(MakeButton(QStringLiteral("icon-tick-larger"), tr("OK"), &TEditWidget::OnDone))
    , m_ListCancel(MakeButton(QStringLiteral("icon-cross-larger"), tr("Cancel"), &TEditWidget::OnCancelEdit))
    , m_FloatingOk(MakeFloatingButton(QStringLiteral("icon-tick-larger"), tr("OK"), &TEditWidget::OnDone))
    , m_FloatingCancel(
          MakeFloatingButton(QStringLiteral("icon-cross-larger"), tr("Cancel"), &TEditWidget::OnCancelEdit))
    , m_MaxFontSize(STANDARD_FONT_SIZE)
    , m_MinFontSize(DefaultMinFontSize)
    , m_Overlay(this)
{
    hide();
    move(0, 0);
    m_ValueButton->SetFontProperties(QColor(QStringLiteral("Black")), STANDARD_FONT_SIZE, true, false, false,
                                     m_TextAlignment, false);
    m_Field->setAutoFillBackground(true);
    m_Field->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_Field->hide();
    m_ValueButton->PlayButtonPressSounds(false);
    m_ValueButton->SetMMIBehaviour(MMI_EXCLUDED);
    connect(TUnitSettings::Instance(), &TUnitSettings::Changed, this, &TEditWidget::OnUnitSettingsChanged);
    RefreshProperties(item);
    m_PreviousValue = m_Item.value;
}

// A widget that is deleted while it is up hears of no hide event any more.
TEditWidget::~TEditWidget()
{
    m_Overlay.Unlock();
}

TPushButton* TEditWidget::MakeButton(QString const& icon, QString const& toolTip, void (TEditWidget::*slot)())
{
    auto* const button = new TPushButton(this, icon, QSize(), QPoint(), -1, toolTip);
    connect(button, &QAbstractButton::clicked, this, slot);
    button->hide();
    return button;
}

TPushButton* TEditWidget::MakeFloatingButton(QString const& icon, QString const& toolTip,
                                             void (TEditWidget::*slot)())
{
    TPushButton* const button = MakeButton(icon, toolTip, slot);
    button->setFixedSize(CONTROL_BUTTON_MIN_WIDTH, FLOATING_CONTROL_BUTTON_HEIGHT);
    return button;
}

TPushButton* TEditWidget::MakeStepButton(QString const& icon, QString const& toolTip,
                                         void (TEditWidget::*slot)())
{
    TPushButton* const button = MakeFloatingButton(icon, toolTip, slot);
    button->SetAutoRepeat(true, RepeatDelay, RepeatInterval);
    return button;
}

void TEditWidget::Setup()
{
    m_VisibleListEntries = GetNumVisibleListEntries();
}

bool TEditWidget::IsListKind() const
{
    return m_Item.IsList();
}

bool TEditWidget::IsPadInUse() const
{
    return m_Item.useNumberPad && m_Pad;
}

int TEditWidget::FirstIndex() const
{
    return qBound(0, IndexOf(m_Item.minimum), MostEntries);
}

// The minimum as it was set, unless it is no index.
double TEditWidget::FirstValue() const
{
    return m_Item.minimum >= 0.0 && m_Item.minimum <= MostEntries ? m_Item.minimum : FirstIndex();
}

int TEditWidget::LastIndex() const
{
    return qBound(-1, IndexOf(m_Item.maximum), MostEntries - 1);
}

// ---- value ----

QString TEditWidget::GetStringValue()
{
    if (m_Item.multiSelect)
    {
        if (!m_Item.showSelection)
            return tr("Select from list:");
        return m_List ? m_List->GetSelectedTextItems().join(QLatin1Char(',')) : QString();
    }
    if (m_Item.kind == EDIT_KIND_TEXT_LIST)
        return GetStringValue(IndexOf(m_Item.value));
    if (m_Item.kind == EDIT_KIND_HIDDEN_LIST)
        return QString(GetStringValue(IndexOf(m_Item.value)).size(), QLatin1Char('*'));
    if (m_Item.numberPadType == NUMBER_PAD_IP_ADDRESS)
        return m_Item.ipAddress;
    if (m_Item.allowEmpty && m_Item.value == m_Item.emptyValue)
        return {};
    if (m_Item.unitType != UNIT_NONE)
        return TUnits::GetValueStringInContext(m_Item.value, m_Item.unitType, m_Item.unitsContext,
                                               m_Item.decimalPlaces, nullptr, m_Item.density);
    return TUnits::GetValueString(m_Item.value, m_Item.suffix, m_Item.decimalPlaces, nullptr);
}

QString TEditWidget::GetStringValue(int index)
{
    if (m_Item.useButtonText)
        return m_ValueButton->GetText();
    if (index >= 0 && index <= LastIndex())
        return m_ListTexts.value(index);
    return tr("Error: Invalid Option (%1)").arg(index);
}

QString TEditWidget::GetEnteredStringValue()
{
    return m_ValueButton->GetText();
}

void TEditWidget::SetCurrentValue(double value)
{
    m_Item.value = value;
    m_PreviousValue = value;
    SetFontSizeFromString(GetStringValue());
    SelectValueRow();
    ShowText(GetStringValue());
    UpdateFloatingIncDecButtons();
}

// Nobody is told: what is selected here is the value already, and another row may read the same.
void TEditWidget::SelectValueRow()
{
    if (!m_List)
        return;
    QSignalBlocker const quiet(m_List);
    if (m_Item.multiSelect)
        m_List->SelectItem(IndexOf(m_Item.value), true);
    else
        m_List->SelectItem(GetStringValue(IndexOf(m_Item.value)), true);
}

void TEditWidget::SelectRowOfValue()
{
    QSignalBlocker const quiet(m_List);
    m_List->SelectItem(IndexOf(m_Item.value) - FirstIndex(), true);
}

double TEditWidget::GetCurrentValue()
{
    return m_Item.value;
}

bool TEditWidget::SetActiveItem(QString const& text)
{
    if (!IsListKind())
        return false;
    int const last = qMin(LastIndex(), m_ListTexts.size() - 1);
    for (int index = FirstIndex(); index <= last; ++index)
    {
        if (m_ListTexts.at(index) == text)
        {
            SetCurrentValue(index);
            return true;
        }
    }
    return false;
}

void TEditWidget::SetCurrentListRow(int row)
{
    if (m_List)
        m_List->SetCurrentRow(row);
}

void TEditWidget::SetMaximumValue(float maximum)
{
    m_Item.maximum = double(maximum);
    OnBoundsChanged();
}

double TEditWidget::GetMaximumValue()
{
    return HasSteps(m_Item) ? m_Item.discreteValues.constLast() : m_Item.maximum;
}

void TEditWidget::SetMinimumValue(float minimum)
{
    m_Item.minimum = double(minimum);
    OnBoundsChanged();
}

double TEditWidget::GetMinimumValue()
{
    return HasSteps(m_Item) ? m_Item.discreteValues.constFirst() : m_Item.minimum;
}

// The pad may be up.
void TEditWidget::OnBoundsChanged()
{
    if (IsPadInUse())
        m_Pad->SetBounds(GetMinimumValue(), GetMaximumValue());
    UpdateFloatingIncDecButtons();
}

void TEditWidget::SetDecimalPlaces(int places)
{
    m_Item.decimalPlaces = places;
}

int TEditWidget::GetDecimalPlaces()
{
    return m_Item.decimalPlaces;
}

void TEditWidget::SetSuffix(QString const& suffix)
{
    m_Item.suffix = suffix;
}

QString TEditWidget::GetSuffix()
{
    return m_Item.suffix;
}

void TEditWidget::SetUnitIndex(EUnitsType unit)
{
    m_Item.unitType = unit;
}

EUnitsType TEditWidget::GetSuffixIndex()
{
    return m_Item.unitType;
}

void TEditWidget::SetIncrement(double increment)
{
    m_Item.increment = increment;
}

double TEditWidget::GetIncrement()
{
    return m_Item.increment;
}

void TEditWidget::GetEditItemProperty(TEditItem& item) const
{
    item = m_Item;
}

// A step changes a few digits: what lies under the rest of the field, down to the screen, is not painted
// again. Enabling the updates in the usual way would ask for just that.
void TEditWidget::ShowText(QString const& text)
{
    QRect const before = m_ValueButton->GetFirstLineRect();
    bool const wasEnabled = m_ValueButton->updatesEnabled();
    m_ValueButton->setAttribute(Qt::WA_UpdatesDisabled);
    m_ValueButton->SetText(text, QString(), false, QString(), false);
    m_ValueButton->setAttribute(Qt::WA_UpdatesDisabled, !wasEnabled);
    m_ValueButton->update(before | m_ValueButton->GetFirstLineRect());
}

void TEditWidget::SetTextAlignment(int alignment)
{
    m_TextAlignment = alignment;
    m_ValueButton->SetAlignment(alignment, false);
}

void TEditWidget::OnUnitSettingsChanged()
{
    if (isVisible() && !IsPadInUse())
        ShowText(GetStringValue());
    UpdateFloatingIncDecButtons();
}

// ---- item ----

void TEditWidget::RefreshProperties(TEditItem const* item)
{
    if (!item)
        return;
    bool const isOtherPad =
        item->useNumberPad != m_Item.useNumberPad || item->numberPadType != m_Item.numberPadType;
    m_Item = *item;
    QPointer<TEditWidget> const self(this);
    ChangePad(isOtherPad);
    if (!self)
        return;
    if (m_Item.floatingButtons)
        MakeStepButtons();
    SetupValueList();
    if (m_List)
    {
        SelectRowOfValue();
        m_List->show();
    }
    m_ValueButton->setVisible(m_Item.showValueButton);
    if (m_Item.fontSize != 0)
        SetFontSizeRange(m_Item.fontSize, m_Item.fontSize);
    UpdateFloatingIncDecButtons();
    if (!isVisible())
        return;
    ShowParts();
    if (!self)
        return;
    SourceMovedSlot();
    ShowCurrentRow();
}

void TEditWidget::ChangePad(bool isOtherPad)
{
    if (isOtherPad)
    {
        DropPad();
        if (m_Item.useNumberPad)
            MakePad();
    }
    if (!IsPadInUse())
        return;
    QPointer<TUnitsNumberPad> const pad(m_Pad);
    pad->SetUnitType(m_Item.unitType, m_Item.unitsContext);
    if (pad && pad == m_Pad)
        pad->SetUnitSelector(m_Item.unitsSelector);
}

// It may be the one whose signal asks for another.
void TEditWidget::DropPad()
{
    if (!m_Pad)
        return;
    m_Pad->disconnect(this);
    if (TPushButton* const units = m_Pad->GetUnitsButton())
        units->hide();
    m_Pad->HideWindow();
    m_Pad->deleteLater();
    m_Pad = nullptr;
    m_IsPadInline = false;
}

void TEditWidget::MakePad()
{
    m_Pad = new TUnitsNumberPad(this, m_Item.numberPadType);
    // Where the wheel does not step the value, it walks over the keys.
    m_Pad->SetMMIBehaviour(MMI_TRANSPARENT);
    connect(m_Pad, &TNumberPad::NewValueDbl, this, &TEditWidget::OnNumberPadValueChange);
    connect(m_Pad, &TNumberPad::NewText, this, &TEditWidget::OnNumberPadTextChange);
    connect(m_Pad, &TNumberPad::Cancel, this, &TEditWidget::OnCancelEdit);
    connect(m_Pad, &TNumberPad::NewIPAddressValue, this, &TEditWidget::OnNumberPadIPAddressChange);
    connect(m_Pad, &TNumberPad::IncrementPressed, this, &TEditWidget::OnUp);
    connect(m_Pad, &TNumberPad::DecrementPressed, this, &TEditWidget::OnDown);
}

void TEditWidget::MakeStepButtons()
{
    if (!m_Plus)
        m_Plus =
            MakeStepButton(QStringLiteral("icon-plus-larger"),
                           QCoreApplication::translate("ToolTip", "Increment Value"), &TEditWidget::OnUp);
    if (!m_Minus)
        m_Minus =
            MakeStepButton(QStringLiteral("icon-minus-larger"),
                           QCoreApplication::translate("ToolTip", "Decrement Value"), &TEditWidget::OnDown);
}

// ---- list ----

void TEditWidget::SetupValueList()
{
    if (!IsListKind())
    {
        DropList();
        return;
    }
    if (m_Item.directory.isEmpty())
    {
        m_ListTexts = TextsOfItem();
        if (!(m_Item.value >= m_Item.minimum && m_Item.value <= m_Item.maximum))
            m_Item.value = FirstValue();
    }
    else
    {
        m_ListTexts = TextsWithFolders();
        m_Item.maximum = m_ListTexts.size() - 1;
    }
    if (!m_List)
        MakeList();
    FillList();
}

// Fixed entries first, then the folders.
QVector<QString> TEditWidget::TextsWithFolders() const
{
    QVector<QString> texts;
    for (int i = 0; i < MostEntries; ++i)
    {
        QString const text = m_Item.textItems.at(i);
        if (text.isEmpty())
            break;
        texts.append(text);
    }
    QStringList const folders = QDir(m_Item.directory)
                                    .entryList(QDir::Dirs | QDir::NoDot | QDir::NoDotDot, QDir::Name)
                                    .mid(0, MostEntries - texts.size());
    return texts + folders.toVector();
}

QVector<QString> TEditWidget::TextsOfItem() const
{
    int const count = LastIndex() + 1;
    QVector<QString> texts;
    texts.reserve(count);
    for (int i = 0; i < count; ++i)
        texts.append(m_Item.textItems.at(i));
    return texts;
}

// It may be the one whose signal asks for another item.
void TEditWidget::DropList()
{
    m_ListTexts.clear();
    if (!m_List)
        return;
    m_List->disconnect(this);
    m_List->hide();
    m_List->deleteLater();
    m_List = nullptr;
    m_MousePressing = false;
    m_ListOk->hide();
    m_ListCancel->hide();
    m_Box = QRect();
}

void TEditWidget::MakeList()
{
    m_List = new TListControl(this);
    m_List->Setup();
    connect(m_List, &TListControl::SelectionChanged, this, &TEditWidget::OnListSelectionChanged);
    connect(m_List, &TListControl::MouseReleased, this, &TEditWidget::OnMouseReleased);
    connect(m_List, &TListControl::MousePressed, this, &TEditWidget::OnMousePressed);
}

void TEditWidget::FillList()
{
    QSignalBlocker const quiet(m_List);
    m_List->Clear();
    m_List->SetSelectionMode(m_Item.multiSelect ? QAbstractItemView::MultiSelection
                                                : QAbstractItemView::SingleSelection);
    if (m_ShowListButtons)
    {
        m_ListOk->setFixedHeight(TASK_WINDOW_BUTTON_HEIGHT);
        m_ListCancel->setFixedHeight(TASK_WINDOW_BUTTON_HEIGHT);
    }
    int const first = FirstIndex();
    int const last = LastIndex();
    for (int index = first; index <= last; ++index)
    {
        m_List->AddString(m_ListTexts.value(index), m_Item.listItemWidth);
        if (!m_Item.itemVisibility.at(index))
            m_List->SetItemHidden(index - first, true);
    }
    if (m_Item.useIcons)
        m_List->SetupListItemIcon(m_Item.iconNames);
}

void TEditWidget::SelectTextItem(int row, bool select)
{
    if (m_List)
        m_List->SelectItem(row, select);
}

void TEditWidget::SelectAllListItems()
{
    if (m_List)
        m_List->SelectAll();
}

void TEditWidget::UnSelectAllListItems()
{
    if (m_List)
        m_List->UnSelectAllSelections();
}

bool TEditWidget::IsTextItemSelected(unsigned int row)
{
    return m_List && row < unsigned(m_List->GetNumberOfItems()) && m_List->IsItemSelected(row);
}

QList<QListWidgetItem*> TEditWidget::GetSelectedItems() const
{
    return m_List ? m_List->GetSelectedItems() : QList<QListWidgetItem*>();
}

void TEditWidget::ClearPropertyValue()
{
    if (!m_List)
        return;
    QSignalBlocker const quiet(m_List);
    m_List->Clear();
    m_Item.minimum = 0;
    m_Item.maximum = -1;
}

void TEditWidget::SetTitle(QString const& title)
{
    m_Title = title;
    if (m_List && isVisible())
        SourceMovedSlot();
}

void TEditWidget::SetTextBasedValue(int index, QString text)
{
    if (index < 0 || index >= MostEntries)
        return;
    m_Item.textItems.setAt(index, text);
    if (index >= m_ListTexts.size())
        m_ListTexts.resize(index + 1);
    m_ListTexts[index] = text;
    if (m_List)
        m_List->SetItemText(index - FirstIndex(), text, m_Item.listItemWidth);
}

void TEditWidget::SetIPAddress(QString const& address)
{
    m_Item.ipAddress = address;
    if (m_Item.numberPadType == NUMBER_PAD_IP_ADDRESS)
        ShowText(address);
}

void TEditWidget::SetItemHidden(int index, bool hide)
{
    if (!m_List || index < 0 || index >= MostEntries)
        return;
    m_List->SetItemHidden(index - FirstIndex(), hide);
    m_Item.itemVisibility.setAt(index, !m_List->IsItemHidden(index));
}

bool TEditWidget::IsListItemEntryHidden(int index)
{
    return m_List && m_List->IsItemHidden(index - FirstIndex());
}

int TEditWidget::GetNumVisibleListEntries()
{
    int count = 0;
    int const last = LastIndex();
    for (int index = FirstIndex(); index <= last; ++index)
        count += m_Item.itemVisibility.at(index) ? 1 : 0;
    return count;
}

void TEditWidget::controlOKButton(bool enable)
{
    m_ListOk->setEnabled(enable);
}

void TEditWidget::ShowListButtons(bool show)
{
    m_ShowListButtons = show;
    m_ListOk->setVisible(show && IsListKind());
    m_ListCancel->setVisible(show && IsListKind());
}

bool TEditWidget::IsMousePressing() const
{
    return m_MousePressing;
}

void TEditWidget::OnMousePressed()
{
    m_MousePressing = true;
}

void TEditWidget::OnMouseReleased(int row)
{
    m_MousePressing = false;
    Q_EMIT MouseReleased(row < 0 ? row : row + FirstIndex());
}

void TEditWidget::OnListSelectionChanged(int selection)
{
    if (selection < 0)
        return;
    m_Item.value = selection + FirstValue();
    if (m_Item.value > m_Item.maximum)
    {
        m_Item.value = FirstValue();
        selection = 0;
    }
    Q_EMIT SelectionChanged(selection);
}

// ---- open and closed ----

void TEditWidget::Open()
{
    QPointer<TEditWidget> const self(this);
    m_Overlay.Open(this);
    if (!self)
        return;
    SourceMovedSlot();
    ShowCurrentRow();
}

void TEditWidget::ShowCurrentRow()
{
    if (m_List)
        m_List->ShowCurrentRow();
}

void TEditWidget::Close()
{
    m_Overlay.Close();
}

void TEditWidget::SetLockExclusive(bool exclusive)
{
    m_LockExclusive = exclusive;
}

void TEditWidget::LockTopLevelWindow()
{
    m_Overlay.Lock(QStringLiteral("Value Editor"), m_LockExclusive ? KVN::MODAL_LOCAL : KVN::MODAL_GLOBAL);
}

void TEditWidget::UnLockTopLevelWindow()
{
    m_Overlay.Unlock();
}

void TEditWidget::showEvent(QShowEvent* event)
{
    QPointer<TEditWidget> const self(this);
    QWidget::showEvent(event);
    LockTopLevelWindow();
    if (self)
        ShowParts();
    if (!self || !MainScreen)
        return;
    MainScreen->RaiseOffScreenButtons();
    MainScreen->PushMMIWidget(this);
}

void TEditWidget::ShowParts()
{
    bool const isList = IsListKind();
    if (isList)
        m_VisibleListEntries = GetNumVisibleListEntries();
    // After a cancel the row is another one.
    if (isList && !m_Item.multiSelect)
        SelectRowOfValue();
    ShowText(GetStringValue());
    QPointer<TEditWidget> const self(this);
    if (IsPadInUse())
        DisplayNumberPad();
    else if (m_Pad)
        m_Pad->HideWindow();
    if (!self)
        return;
    if (IsPadInUse())
    {
        m_Pad->raise();
        PositionNumberPad();
    }
    UpdateFloatingIncDecButtons();
    ShowFloatingOkCancel();
    ShowListButtons(m_ShowListButtons);
}

// A pad that nobody sees takes no key.
void TEditWidget::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    m_MousePressing = false;
    m_BoxPixmap.reset();
    if (m_Pad)
        m_Pad->setEnabled(false);
    UnLockTopLevelWindow();
}

// A pad that is up already tells its new text, and whoever hears of it may delete the widget or give it
// another pad.
void TEditWidget::DisplayNumberPad()
{
    QPointer<TUnitsNumberPad> const pad(m_Pad);
    auto const isInUse = [this, &pad] { return pad && pad == m_Pad; };
    if (m_Item.numberPadType == NUMBER_PAD_IP_ADDRESS)
    {
        pad->SetIPAddress(m_Item.ipAddress);
    }
    else
    {
        if (m_Item.numberPadType == NUMBER_PAD_DECIMAL)
            SetUnitOfPad();
        if (isInUse())
            pad->SetValueDbl(m_Item.value, float(m_Item.density));
        if (isInUse())
            SetLimitsOfPad();
    }
    if (!isInUse())
        return;
    pad->setEnabled(true);
    pad->ShowWindow(false);
}

void TEditWidget::SetUnitOfPad()
{
    if (m_Item.unitType == UNIT_NONE)
        m_Pad->SetSuffix(m_Item.suffix);
    else
        m_Pad->SetUnitType(m_Item.unitType, m_Item.unitsContext);
}

void TEditWidget::SetLimitsOfPad()
{
    m_Pad->SetBounds(GetMinimumValue(), GetMaximumValue());
    m_Pad->AllowEmpty(m_Item.allowEmpty, m_Item.emptyValue);
    m_Pad->SetNumberOfDecimalPlaces(m_Item.padDecimalPlaces == -1 ? m_Item.decimalPlaces
                                                                  : m_Item.padDecimalPlaces);
}

void TEditWidget::PutPadAway()
{
    if (!m_Pad)
        return;
    m_Pad->HideWindow();
    m_Pad->setEnabled(false);
}

void TEditWidget::CloseWithPad()
{
    QPointer<TEditWidget> const self(this);
    Close();
    if (self)
        PutPadAway();
}

void TEditWidget::OnNumberPadValueChange(double value)
{
    m_Item.value = value;
    ShowText(GetStringValue());
    PutPadAway();
    OnDone();
}

void TEditWidget::OnNumberPadTextChange(QString const& text)
{
    ShowText(text);
    UpdateFloatingIncDecButtons();
    if (m_Item.liveUpdates)
        Q_EMIT ValueChanged(ToDisplayUnit(ValueUnderEdit()));
}

void TEditWidget::OnNumberPadIPAddressChange(QString const& text)
{
    m_Item.ipAddress = text;
    ShowText(text);
    PutPadAway();
    QPointer<TEditWidget> const self(this);
    Close();
    if (self)
        Q_EMIT NewIPAddressValue(text);
}

void TEditWidget::OnDone()
{
    m_Item.value = AcceptableValue();
    m_PreviousValue = m_Item.value;
    QPointer<TEditWidget> const self(this);
    CloseWithPad();
    if (!self)
        return;
    if (m_Pad)
        m_Pad->update();
    Q_EMIT NewValue(m_Item.value);
}

// What the owner gave may have been out of the bounds from the start, and is accepted within them. Bounds
// without room between them were never set.
double TEditWidget::AcceptableValue()
{
    bool const isNumber = m_Item.kind == EDIT_KIND_NUMERIC || m_Item.kind == EDIT_KIND_STEPPED;
    bool const isEmpty = m_Item.allowEmpty && m_Item.value == m_Item.emptyValue;
    if (!isNumber || isEmpty)
        return m_Item.value;
    TBounds const bounds = DefaultBounds();
    if (std::isfinite(m_Item.value) && !(bounds.low < bounds.high))
        return m_Item.value;
    return Held(bounds.low, m_Item.value, bounds.high);
}

void TEditWidget::OnCancelEdit()
{
    m_Item.value = m_PreviousValue;
    QPointer<TEditWidget> const self(this);
    CloseWithPad();
    if (!self)
        return;
    Q_EMIT NumberPadCancelled();
    if (self)
        update();
}

// ---- steps ----

double TEditWidget::ToDisplayUnit(double value) const
{
    return IsPadInUse()
               ? m_Pad->GetValueInCurrentNumPadUnit(value)
               : TUnits::GetValueInCurrentUnit(value, m_Item.unitType, m_Item.unitsContext, m_Item.density);
}

double TEditWidget::ToDefaultUnit(double value) const
{
    return IsPadInUse()
               ? m_Pad->GetValueInDefaultNumPadUnit(value)
               : TUnits::GetValueInDefaultUnit(value, m_Item.unitType, m_Item.unitsContext, m_Item.density);
}

EUnitsType TEditWidget::DetermineActualUnit() const
{
    return IsPadInUse() ? m_Pad->DetermineActualUnit()
                        : TUnits::DetermineActualUnitFromUnitsType(m_Item.unitType, m_Item.unitsContext);
}

double TEditWidget::ValueUnderEdit() const
{
    return IsPadInUse() ? m_Pad->GetValueDbl() : m_Item.value;
}

// What is not a number is no bound.
TEditWidget::TBounds TEditWidget::DefaultBounds()
{
    double const largest = std::numeric_limits<double>::max();
    double const low = GetMinimumValue();
    double const high = GetMaximumValue();
    auto const bounds = std::minmax({std::isnan(low) ? -largest : low, std::isnan(high) ? largest : high});
    return {bounds.first, bounds.second};
}

// A conversion can turn them round.
void TEditWidget::GetMinMaxInCurrentUnits(double& min, double& max)
{
    TBounds const bounds = DefaultBounds();
    std::tie(min, max) = std::minmax({ToDisplayUnit(bounds.low), ToDisplayUnit(bounds.high)});
}

double TEditWidget::GetIncrementInCurrentUnits() const
{
    EUnitsType const unit = DetermineActualUnit();
    for (TUnitIncrement const& entry : m_Item.unitIncrements)
    {
        if (entry.unit == unit)
            return entry.increment;
    }
    return m_Item.increment;
}

bool TEditWidget::GetIncrementedValues(double& down, double& up, double& min, double& max)
{
    double const increment = GetIncrementInCurrentUnits();
    if (m_Item.kind != EDIT_KIND_NUMERIC || !(increment > 0.0) || !std::isfinite(increment))
        return false;
    TBounds const bounds = DefaultBounds();
    double const current = ToDisplayUnit(Held(bounds.low, ValueUnderEdit(), bounds.high));
    GetMinMaxInCurrentUnits(min, max);
    // The grid of a range that begins below zero goes through zero.
    double const base = qMax(0.0, std::ceil(min / increment) * increment);
    double const steps = std::round((current - base) / increment);
    down = (steps - 1) * increment + base;
    up = (steps + 1) * increment + base;
    return std::isfinite(down) && std::isfinite(up);
}

void TEditWidget::OnUp()
{
    IncrementValue(1);
}

void TEditWidget::OnDown()
{
    IncrementValue(-1);
}

void TEditWidget::IncrementValue(int direction)
{
    if (m_Item.kind == EDIT_KIND_STEPPED)
        IncrementStepped(direction);
    else if (m_Item.kind == EDIT_KIND_NUMERIC)
        IncrementNumber(direction);
}

// Set like a value of the owner, so that a cancel does not take the step back: deliberate.
void TEditWidget::IncrementStepped(int direction)
{
    QVector<double> const& values = qAsConst(m_Item.discreteValues);
    auto const next = direction > 0 ? std::upper_bound(values.begin(), values.end(), m_Item.value)
                                    : std::lower_bound(values.begin(), values.end(), m_Item.value);
    if (next == (direction > 0 ? values.end() : values.begin()))
        return;
    SetCurrentValue(direction > 0 ? *next : *std::prev(next));
    ShowStep();
}

void TEditWidget::IncrementNumber(int direction)
{
    double down = 0.0;
    double up = 0.0;
    double min = 0.0;
    double max = 0.0;
    if (!GetIncrementedValues(down, up, min, max))
        return;
    double const step = direction > 0 ? up : down;
    m_Item.value =
        m_Item.numberPadType == NUMBER_PAD_TIME ? Wrapped(step) : StoredWithinBounds(step, min, max);
    ShowStep();
}

void TEditWidget::ShowStep()
{
    QPointer<TEditWidget> const self(this);
    if (IsPadInUse())
        m_Pad->SetValueDbl(m_Item.value, float(m_Item.density));
    if (!self)
        return;
    if (!m_Item.unitsSelector.IsValid())
        ShowText(GetStringValue());
    UpdateFloatingIncDecButtons();
    Q_EMIT ValueChanged();
}

// A bound comes back as it was set, without the last bits that a conversion loses.
double TEditWidget::StoredWithinBounds(double shown, double min, double max)
{
    TBounds const bounds = DefaultBounds();
    bool const isTurned = ToDisplayUnit(bounds.low) > ToDisplayUnit(bounds.high);
    if (shown >= max)
        return isTurned ? bounds.low : bounds.high;
    if (shown <= min)
        return isTurned ? bounds.high : bounds.low;
    return qBound(bounds.low, ToDefaultUnit(shown), bounds.high);
}

double TEditWidget::Wrapped(double value)
{
    if (value >= m_Item.maximum)
        value = m_Item.minimum;
    else if (value < m_Item.minimum)
        value += m_Item.maximum;
    TBounds const bounds = DefaultBounds();
    return qBound(bounds.low, value, bounds.high);
}

bool TEditWidget::FloatingIncDecBtnsAvail() const
{
    if (m_IsPadInline && m_Pad)
        return false;
    return m_Item.floatingButtons && (m_Item.kind == EDIT_KIND_NUMERIC || m_Item.kind == EDIT_KIND_STEPPED);
}

bool TEditWidget::FloatingOkCancelBtnsAvail() const
{
    return FloatingIncDecBtnsAvail() && !m_Item.useNumberPad;
}

void TEditWidget::UpdateFloatingIncDecButtons()
{
    if (!m_Plus)
        return;
    bool const isAvailable = FloatingIncDecBtnsAvail();
    m_Plus->setVisible(isAvailable);
    m_Minus->setVisible(isAvailable);
    if (!m_Item.floatingButtons)
        return;
    bool canUp = true;
    bool canDown = true;
    if (m_Item.numberPadType != NUMBER_PAD_TIME && m_Item.numberPadType != NUMBER_PAD_DATE)
    {
        double min = 0.0;
        double max = 0.0;
        GetMinMaxInCurrentUnits(min, max);
        double const current = ToDisplayUnit(ValueUnderEdit());
        canUp = current < max;
        canDown = current > min;
    }
    m_Plus->setEnabled(canUp);
    m_Minus->setEnabled(canDown);
    if (m_Pad)
        m_Pad->SetIncDecEnabled(canUp, canDown);
}

void TEditWidget::ShowFloatingOkCancel()
{
    bool const isAvailable = FloatingOkCancelBtnsAvail();
    m_FloatingOk->setVisible(isAvailable);
    m_FloatingCancel->setVisible(isAvailable);
}

// ---- wheel ----

EMMIWidgetBehaviour TEditWidget::GetMMIBehaviour()
{
    bool const ownsWheel = (m_Plus && m_Plus->IsMMIWidgetActiveTo(this)) ||
                           (m_Minus && m_Minus->IsMMIWidgetActiveTo(this)) ||
                           (m_List && m_List->IsMMIWidgetActiveTo(this));
    return ownsWheel ? MMI_WHEEL_OWNER : MMI_NORMAL;
}

void TEditWidget::OnMMIWheelRight()
{
    if (m_Plus && m_Plus->IsMMIWidgetActive())
        OnUp();
    else if (m_List && m_List->IsMMIWidgetActive())
        m_List->OnScrollDown();
}

void TEditWidget::OnMMIWheelLeft()
{
    if (m_Minus && m_Minus->IsMMIWidgetActive())
        OnDown();
    else if (m_List && m_List->IsMMIWidgetActive())
        m_List->OnScrollUp();
}

KVN::MMICapableWidget* TEditWidget::OnMMIEnter()
{
    if (m_ListOk->IsMMIWidgetActive())
        m_ListOk->animateClick(ClickTime);
    else if (m_FloatingOk->IsMMIWidgetActive())
        m_FloatingOk->animateClick(ClickTime);
    else if (IsListKind() && !m_ShowListButtons)
        OnDone();
    else if (m_Pad && m_Pad->isVisible())
        m_Pad->OnMMIEnter();
    return nullptr;
}

bool TEditWidget::OnMMIBack()
{
    if (m_ListCancel->IsMMIWidgetActive())
        m_ListCancel->animateClick(ClickTime);
    else if (m_FloatingCancel->IsMMIWidgetActive())
        m_FloatingCancel->animateClick(ClickTime);
    else if (IsListKind() && !m_ShowListButtons)
        OnCancelEdit();
    else if (m_Pad && m_Pad->isVisible())
        m_Pad->OnMMIBack();
    return false;
}

bool TEditWidget::UseDefaultMMIHighlight()
{
    return false;
}
