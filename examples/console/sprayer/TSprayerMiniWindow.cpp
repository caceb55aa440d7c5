#include "TSprayerMiniWindow.h"

#include "TMachine.h"
#include "TQuantity.h"
#include "TSectionButton.h"
#include "TTankGauge.h"
#include "TUnitSettings.h"
#include "TValueField.h"

namespace
{
constexpr int Columns = 4;
constexpr int ButtonWidth = 61;
constexpr int ButtonHeight = 57;
constexpr int Left = 2;
constexpr int TankTop = 2 * ButtonHeight + 2;
constexpr int TankHeight = 36;
constexpr int FieldTop = TankTop + TankHeight + 4;
constexpr int FieldHeight = 62;
constexpr int FieldWidth = 121;
constexpr int FieldGap = 2;
} // namespace

TSprayerMiniWindow::TSprayerMiniWindow(TMachine* machine)
    : TMiniWindow(nullptr)
    , m_Machine(machine)
{
    SetTitle(tr("Sprayer"));
}

void TSprayerMiniWindow::Setup()
{
    TMiniWindow::Setup();
    QWidget* const content = GetWindowContent();
    for (int section = 0; section < TBoom::SectionCount; ++section)
    {
        auto* const button = new TSectionButton(content, m_Machine, section);
        button->setGeometry(Left + section % Columns * ButtonWidth, section / Columns * ButtonHeight,
                            ButtonWidth, ButtonHeight);
    }
    m_Tank = new TTankGauge(content, *m_Machine, Qt::Horizontal);
    m_Tank->setGeometry(Left, TankTop, 2 * FieldWidth + FieldGap, TankHeight);
    m_Flow = new TValueField(content, tr("Flow"));
    m_Flow->setGeometry(Left, FieldTop, FieldWidth, FieldHeight);
    m_Rate = new TValueField(content, tr("Rate"));
    m_Rate->setGeometry(Left + FieldWidth + FieldGap, FieldTop, FieldWidth, FieldHeight);
    connect(TUnitSettings::Instance(), &TUnitSettings::Changed, this, &TSprayerMiniWindow::UpdateView);
    UpdateView();
}

void TSprayerMiniWindow::UpdateView()
{
    if (!m_Tank)
        return;
    m_Tank->Sync();
    m_Flow->SetValue(Quantities::Flow, m_Machine->FlowPerMinute());
    m_Rate->SetValue(Quantities::Rate, m_Machine->Rate());
}
