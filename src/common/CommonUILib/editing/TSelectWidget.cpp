#include "TSelectWidget.h"

#include "TEditItem.h"
#include "TEditWidget.h"
#include "TLabel.h"
#include "TPushButton.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace
{
enum EButtonId
{
    BUTTON_PREVIOUS = 0,
    BUTTON_SELECTION = 1,
    BUTTON_NEXT = 2
};
constexpr QSize SmallButton(40, 50);
constexpr QSize LargeButton(55, 55);
} // namespace

TSelectWidget::TSelectWidget(QWidget* parent)
    : QWidget(parent)
    , m_PreviousButton(MakeButton(QStringLiteral("icon-left"), BUTTON_PREVIOUS, tr("Decrement Selection")))
    , m_NextButton(MakeButton(QStringLiteral("icon-right"), BUTTON_NEXT, tr("Increment Selection")))
    , m_SelectionButton(MakeButton(QString(), BUTTON_SELECTION, tr("Select From List")))
    , m_Title(new TLabel(this))
{
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_Title->setAlignment(Qt::AlignCenter);
    m_Title->hide();
    column->addWidget(m_Title);
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(0);
    buttons->addWidget(m_PreviousButton);
    buttons->addWidget(m_SelectionButton, 1);
    buttons->addWidget(m_NextButton);
    column->addLayout(buttons);
    SetSelectorSize(SELECTOR_SMALL);
}

TSelectWidget::~TSelectWidget()
{
    delete m_EditWidget.data();
}

TPushButton* TSelectWidget::MakeButton(QString const& icon, int id, QString const& toolTip)
{
    auto* const button = new TPushButton(this, icon, SmallButton, QPoint(), id, toolTip);
    connect(button, &TPushButton::Clicked, this, &TSelectWidget::OnButtonClicked);
    return button;
}

void TSelectWidget::Clear()
{
    DropList();
    m_Entries.clear();
    m_Selection = 0;
    m_SelectionBeforeEdit = 0;
    ShowSelection();
}

void TSelectWidget::AppendEntry(QString key, QString text, int id)
{
    m_Entries.append({std::move(key), std::move(text), id});
    ShowSelection();
}

int TSelectWidget::CountEntries() const
{
    return m_Entries.size();
}

QString TSelectWidget::GetEntry(int index) const
{
    return m_Entries.value(index).key;
}

QString TSelectWidget::GetStringEntry(int index) const
{
    return m_Entries.value(index).text;
}

int TSelectWidget::GetID(int index) const
{
    return m_Entries.value(index).id;
}

void TSelectWidget::SetupSelect(QString const& title, int initial)
{
    m_Selection = 0;
    m_SelectionBeforeEdit = 0;
    m_Title->setText(title);
    m_Title->setVisible(!title.isEmpty());
    MakeList(initial);
    ShowSelection();
}

void TSelectWidget::SetSelectorSize(ESelectorSize size)
{
    if (size != SELECTOR_SMALL && size != SELECTOR_LARGE)
        return;
    for (TPushButton* const button : {m_PreviousButton, m_SelectionButton, m_NextButton})
        button->setMinimumSize(size == SELECTOR_SMALL ? SmallButton : LargeButton);
}

void TSelectWidget::UpdateSelection(int index)
{
    if (index < 0 || index >= m_Entries.size())
        return;
    m_Selection = index;
    update();
    UpdateSelectionButton();
}

void TSelectWidget::UpdateSelectionButton()
{
    if (m_Selection >= m_Entries.size())
        return;
    ShowSelection();
    Q_EMIT SelectionChanged(m_Selection);
}

void TSelectWidget::ShowSelection()
{
    m_SelectionButton->SetText(tr("%1").arg(GetStringEntry(m_Selection)), QStringLiteral("List Select"),
                               false, QString(), false);
}

void TSelectWidget::OnButtonClicked(int buttonId)
{
    if (buttonId == BUTTON_PREVIOUS)
        UpdateSelection(m_Selection - 1);
    else if (buttonId == BUTTON_NEXT)
        UpdateSelection(m_Selection + 1);
    else if (buttonId == BUTTON_SELECTION)
        OpenList();
}

void TSelectWidget::MakeList(int initial)
{
    DropList();
    TEditItem item;
    item.kind = EDIT_KIND_TEXT_LIST;
    item.SetMinMaxInc(0, m_Entries.size() - 1, 1);
    item.value = initial;
    for (int i = 0; i < m_Entries.size(); ++i)
        item.textItems.setAt(i, GetStringEntry(i));
    auto* const list = new TEditWidget(nullptr, &item);
    m_EditWidget = list;
    connect(list, &TEditWidget::NumberPadCancelled, this, &TSelectWidget::OnSelectionCancelled);
    connect(list, &TEditWidget::SelectionChanged, this, &TSelectWidget::OnSelectionChanged);
    list->Close();
}

// It may be the one whose signal asks for other entries.
void TSelectWidget::DropList()
{
    if (!m_EditWidget)
        return;
    m_EditWidget->disconnect(this);
    m_EditWidget->Close();
    m_EditWidget->deleteLater();
    m_EditWidget = nullptr;
}

void TSelectWidget::OpenList()
{
    m_SelectionBeforeEdit = m_Selection;
    if (!m_EditWidget)
        return;
    m_EditWidget->SetCurrentValue(m_Selection);
    m_EditWidget->SetPosition(m_SelectionButton);
    m_EditWidget->Open();
}

void TSelectWidget::OnSelectionCancelled()
{
    UpdateSelection(m_SelectionBeforeEdit);
}

void TSelectWidget::OnSelectionChanged(int index)
{
    if (m_EditWidget)
        UpdateSelection(index);
}
