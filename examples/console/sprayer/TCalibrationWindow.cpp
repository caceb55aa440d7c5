#include "TCalibrationWindow.h"

#include "TLabel.h"
#include "TMachine.h"
#include "TPushButton.h"
#include "TQuantity.h"
#include "TUnitSettings.h"
#include "TValueField.h"

#include <QHBoxLayout>

namespace
{
constexpr double CaughtStep = 0.01; // of what one nozzle gives in the minute of the test, by the meter
constexpr int RowHeight = 72;
constexpr int StepButtonWidth = 84;
constexpr int Gap = 8;
constexpr int RepeatDelay = 250;
constexpr int RepeatInterval = 100;
constexpr QSize ContentSize(420, 480);
} // namespace

TCalibrationWindow::TCalibrationWindow(QWidget* parent, TMachine* machine)
    : TTaskWindow(parent)
    , m_Machine(machine)
{
    SetDesiredContentSize(ContentSize);
    connect(this, &TTaskWindow::Ok, this, [this] { m_Machine->SetFlowFactor(Factor()); });
}

void TCalibrationWindow::Setup()
{
    TTaskWindow::Setup();
    SetTitle(tr("Flow calibration"));
    SetTitleIcon(QStringLiteral("icon-tank"));
    SetupVBoxLayout();
    auto* const advice =
        new TLabel(tr("Hold a jug under one nozzle for one minute, then say how much it caught."), this);
    advice->setWordWrap(true);
    AddWidgetToLayout(advice, 0, Qt::Alignment());
    m_Expected = new TValueField(this, tr("By the meter"));
    m_Caught = new TValueField(this, tr("In the jug"));
    m_Correction = new TValueField(this, tr("Correction"));
    for (TValueField* const field : {m_Expected, m_Caught, m_Correction})
        field->setFixedHeight(RowHeight);
    AddWidgetToLayout(m_Expected, 0, Qt::Alignment());
    AddWidgetToLayout(MakeCaughtRow(), 0, Qt::Alignment());
    AddWidgetToLayout(m_Correction, 0, Qt::Alignment());
    AddStretchToLayout(1);
    connect(m_Machine, &TMachine::SwitchesChanged, this, &TCalibrationWindow::Sync);
    connect(TUnitSettings::Instance(), &TUnitSettings::Changed, this, &TCalibrationWindow::Sync);
}

QWidget* TCalibrationWindow::MakeCaughtRow()
{
    auto* const row = new QWidget(this);
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Gap);
    m_Less =
        new TPushButton(row, QStringLiteral("icon-minus-larger"), QSize(), QPoint(), 0, tr("It caught less"));
    m_More =
        new TPushButton(row, QStringLiteral("icon-plus-larger"), QSize(), QPoint(), 0, tr("It caught more"));
    connect(m_Less, &TPushButton::Clicked, this, [this] { StepCaught(-1); });
    connect(m_More, &TPushButton::Clicked, this, [this] { StepCaught(1); });
    for (TPushButton* const step : {m_Less, m_More})
    {
        step->setFixedSize(StepButtonWidth, RowHeight);
        step->SetAutoRepeat(true, RepeatDelay, RepeatInterval);
    }
    m_Less->SetObjectName(QStringLiteral("calibration-less"), NAME_EXPLICIT);
    m_More->SetObjectName(QStringLiteral("calibration-more"), NAME_EXPLICIT);
    layout->addWidget(m_Less);
    layout->addWidget(m_Caught, 1);
    layout->addWidget(m_More);
    return row;
}

// Each test begins with what the machine works with now.
void TCalibrationWindow::showEvent(QShowEvent* event)
{
    m_CaughtSteps = qRound((m_Machine->FlowFactor() - 1.0) / CaughtStep);
    Sync();
    TTaskWindow::showEvent(event);
}

void TCalibrationWindow::StepCaught(int steps)
{
    m_CaughtSteps += steps;
    Sync();
}

double TCalibrationWindow::Factor() const
{
    return 1.0 + m_CaughtSteps * CaughtStep;
}

void TCalibrationWindow::Sync()
{
    constexpr double Percent = 100.0;
    m_Expected->SetValue(Quantities::Caught, m_Machine->NozzleFlow());
    m_Caught->SetValue(Quantities::Caught, m_Machine->NozzleFlow() * Factor());
    m_Correction->SetValue(Quantities::Share, (Factor() - 1.0) * Percent);
    m_Less->setEnabled(Factor() > TMachine::SmallestFlowFactor + CaughtStep / 2);
    m_More->setEnabled(Factor() < TMachine::LargestFlowFactor - CaughtStep / 2);
}
