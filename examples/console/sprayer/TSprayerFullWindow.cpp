#include "TSprayerFullWindow.h"

#include "MainScreen.h"
#include "Palette.h"
#include "PixmapNames.h"
#include "TCalibrationWindow.h"
#include "TDialPages.h"
#include "TMachine.h"
#include "TPushButton.h"
#include "TQuantity.h"
#include "TScreen.h"
#include "TSectionButton.h"
#include "TSprayerModule.h"
#include "TTankGauge.h"
#include "TUnitSettings.h"
#include "TValueField.h"

namespace
{
constexpr int RefreshInterval = 200;
constexpr int Margin = 16;
constexpr int Gap = 10;
constexpr int SectionHeight = 110;
constexpr int MasterHeight = 96;
constexpr int TankWidth = 180;
constexpr int IconMargin = 18;
constexpr int RowHeight = 84;
constexpr int StepButtonWidth = 84;
constexpr int TextSize = 22;
constexpr int RepeatDelay = 250;
constexpr int RepeatInterval = 100;
constexpr double PercentOfFull = 100.0;
constexpr double LargestFlow = 300.0;       // l/min
constexpr double LargestSpeed = 30.0 / 3.6; // m/s
constexpr int Centred = Qt::AlignHCenter | Qt::AlignVCenter;
QString const RateAttribute = QStringLiteral("Rate");
} // namespace

TSprayerFullWindow::TSprayerFullWindow(QWidget* canvas, TMachine* machine)
    : TFullWindow(canvas)
    , m_Machine(machine)
{
    UseTimer(RefreshInterval);
}

TSprayerFullWindow::~TSprayerFullWindow() = default;

void TSprayerFullWindow::Setup()
{
    TFullWindow::Setup();
    MakeButtons();
    MakeFields();
    connect(m_Machine, &TMachine::SwitchesChanged, this,
            [this]
            {
                SyncMaster();
                Refresh();
            });
    connect(TUnitSettings::Instance(), &TUnitSettings::Changed, this, &TSprayerFullWindow::Refresh);
    SyncMaster();
    SetTitle(tr("Sprayer"));
    Refresh();
}

void TSprayerFullWindow::MakeButtons()
{
    QWidget* const content = GetWindowContent();
    for (int section = 0; section < TBoom::SectionCount; ++section)
        m_Sections.append(new TSectionButton(content, m_Machine, section));

    m_Master = new TPushButton(content, QStringLiteral("icon-power"), QSize(), QPoint(), 0,
                               tr("Switches all sections"));
    m_Master->SetIconPosition(QPoint(IconMargin, 0), true);
    m_Master->SetObjectName(QStringLiteral("sprayer-master"), NAME_EXPLICIT);
    connect(m_Master, &TPushButton::Clicked, this,
            [this] { m_Machine->SetMasterOn(!m_Machine->IsMasterOn()); });

    m_Less =
        new TPushButton(content, QStringLiteral("icon-minus-larger"), QSize(), QPoint(), 0, tr("Spray less"));
    connect(m_Less, &TPushButton::Clicked, this,
            [this] { m_Machine->SetRate(m_Machine->Rate() - TMachine::RateStep); });
    m_More =
        new TPushButton(content, QStringLiteral("icon-plus-larger"), QSize(), QPoint(), 0, tr("Spray more"));
    connect(m_More, &TPushButton::Clicked, this,
            [this] { m_Machine->SetRate(m_Machine->Rate() + TMachine::RateStep); });
    for (TPushButton* const step : {m_Less, m_More})
        step->SetAutoRepeat(true, RepeatDelay, RepeatInterval);

    m_Fill = MakeTankButton(tr("Filled up"), QStringLiteral("sprayer-fill"), tr("The tank has been filled"));
    m_Drain = MakeTankButton(tr("Drain"), QStringLiteral("sprayer-drain"), tr("Empties the tank"));
    m_Calibrate = MakeTankButton(tr("Calibrate"), QStringLiteral("sprayer-calibrate"),
                                 tr("Puts the flow meter right by a test with a jug"));
    connect(m_Fill, &TPushButton::Clicked, this, [this] { m_Machine->FillTank(); });
    connect(m_Drain, &TPushButton::Clicked, this, &TSprayerFullWindow::DrainRequested);
    connect(m_Calibrate, &TPushButton::Clicked, this, &TSprayerFullWindow::Calibrate);
    m_Master->SetFontProperties(regularButtonTextColor, TextSize, true, false, false, Centred, false);
}

TPushButton* TSprayerFullWindow::MakeTankButton(QString const& text, QString const& name,
                                                QString const& toolTip)
{
    auto* const button = new TPushButton(GetWindowContent(), QString(), QSize(), QPoint(), 0, toolTip);
    button->SetText(text, QString(), true, QString(), false);
    button->SetObjectName(name, NAME_EXPLICIT);
    button->SetFontProperties(regularButtonTextColor, TextSize, true, false, false, Centred, false);
    return button;
}

void TSprayerFullWindow::Calibrate()
{
    if (!m_Calibration)
    {
        m_Calibration = std::make_unique<TCalibrationWindow>(MainScreen, m_Machine);
        m_Calibration->SetSurfaceID(TSprayerModule::Id());
    }
    m_Calibration->ShowWindow(false);
}

void TSprayerFullWindow::MakeFields()
{
    QWidget* const content = GetWindowContent();
    m_Tank = new TTankGauge(content, *m_Machine, Qt::Vertical);
    m_Rate = new TValueField(content, tr("Target rate"));
    m_Dials = new TDialPages(content);
    m_Dials->AddDial(tr("Flow"), Quantities::Flow, LargestFlow);
    m_Dials->AddDial(tr("Speed"), Quantities::WholeSpeed, LargestSpeed);
    m_Dials->AddDial(tr("Tank"), Quantities::Share, PercentOfFull);
}

void TSprayerFullWindow::SyncMaster()
{
    bool const isOn = m_Machine->IsMasterOn();
    m_Master->SetText(isOn ? tr("Sprayer is on") : tr("Sprayer is off"), QString(), true, QString(), false);
    m_Master->SetBackground(isOn ? PixmapNames::NewGreenButton : PixmapNames::NewRedButton);
    m_Master->SetBackgroundSelected(isOn ? PixmapNames::NewGreenButtonSelected
                                         : PixmapNames::NewRedButtonSelected);
}

void TSprayerFullWindow::Refresh()
{
    m_Tank->Sync();
    m_Rate->SetValue(Quantities::Rate, m_Machine->Rate());
    m_Dials->SetValue(0, m_Machine->FlowPerMinute());
    m_Dials->SetValue(1, m_Machine->Fix().speed);
    m_Dials->SetValue(2, m_Machine->TankLitres() / m_Machine->TankSize() * PercentOfFull);
}

void TSprayerFullWindow::resizeEvent(QResizeEvent* event)
{
    TFullWindow::resizeEvent(event);
    Arrange();
}

void TSprayerFullWindow::Arrange()
{
    if (!m_Tank)
        return;
    QRect const room = GetWindowContent()->rect().adjusted(Margin, Margin, -Margin, -Margin);
    int const sectionWidth = (room.width() + Gap) / m_Sections.size();
    for (int i = 0; i < m_Sections.size(); ++i)
        m_Sections[i]->setGeometry(room.left() + i * sectionWidth, room.top(), sectionWidth - Gap,
                                   SectionHeight);
    QRect const below = room.adjusted(0, SectionHeight + Gap, 0, 0);
    m_Tank->setGeometry(below.left(), below.top(), TankWidth, below.height() - RowHeight - Gap);
    QVector<TPushButton*> const bottomRow{m_Fill, m_Drain, m_Calibrate};
    int const bottomWidth = (room.width() + Gap) / bottomRow.size();
    for (int i = 0; i < bottomRow.size(); ++i)
        bottomRow[i]->setGeometry(room.left() + i * bottomWidth, below.bottom() + 1 - RowHeight,
                                  bottomWidth - Gap, RowHeight);
    ArrangeColumn(below.adjusted(TankWidth + Margin, 0, 0, -RowHeight - Gap));
    m_Tank->Sync();
}

void TSprayerFullWindow::ArrangeColumn(QRect const& room)
{
    m_Master->setGeometry(room.left(), room.top(), room.width(), MasterHeight);
    int y = room.top() + MasterHeight + Gap;
    m_Less->setGeometry(room.left(), y, StepButtonWidth, RowHeight);
    m_More->setGeometry(room.right() + 1 - StepButtonWidth, y, StepButtonWidth, RowHeight);
    int const rateLeft = room.left() + StepButtonWidth + Gap;
    m_Rate->setGeometry(rateLeft, y, m_More->x() - Gap - rateLeft, RowHeight);
    y += RowHeight + Gap;
    m_Dials->setGeometry(room.left(), y, room.width(), room.bottom() + 1 - y);
}

void TSprayerFullWindow::SaveXMLStateSnapshot(QDomElement element)
{
    element.setAttribute(RateAttribute, m_Machine->Rate());
}

void TSprayerFullWindow::RestoreXMLStateSnapshot(QDomElement element)
{
    bool isNumber = false;
    int const rate = element.attribute(RateAttribute).toInt(&isNumber);
    if (isNumber)
        m_Machine->SetRate(rate);
}
