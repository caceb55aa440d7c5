#include "TGuidanceFullWindow.h"

#include "Metrics.h"
#include "TLightBar.h"
#include "TMachine.h"
#include "TMapCanvas.h"
#include "TMapLegend.h"
#include "TPushButton.h"
#include "TQuantity.h"
#include "TTaskToolBar.h"
#include "TUnitSettings.h"
#include "TValueField.h"

namespace
{
constexpr int RefreshInterval = 100;
constexpr int LightBarWidth = 460;
constexpr int LightBarHeight = 44;
constexpr int FieldHeight = 66;
constexpr int FieldWidth = 168;
constexpr int Margin = 10;
constexpr int FullTurn = 360;
QString const ZoomAttribute = QStringLiteral("Zoom");
} // namespace

TGuidanceFullWindow::TGuidanceFullWindow(TMapCanvas* canvas, TMachine const& machine)
    : TFullWindow(canvas)
    , m_Canvas(canvas)
    , m_Machine(machine)
{
    UseTimer(RefreshInterval);
}

void TGuidanceFullWindow::Setup()
{
    TFullWindow::Setup();
    QWidget* const content = GetWindowContent();
    m_LightBar = new TLightBar(content);
    m_Legend = new TMapLegend(content);
    m_Speed = new TValueField(content, tr("Speed"));
    m_Heading = new TValueField(content, tr("Heading"));
    m_Area = new TValueField(content, tr("Area done"));
    m_ToolBar = new TTaskToolBar(content, TOOLBAR_VERTICAL_NEAR);
    m_ToolBar->setFixedWidth(TASK_TOOLBAR_BUTTON_WIDTH);
    m_ToolBar->AssignButton(BUTTON_ZOOM_IN, QStringLiteral("icon-zoom-in"), QString(),
                            tr("Show less of the field, larger"));
    m_ToolBar->AssignButton(BUTTON_ZOOM_OUT, QStringLiteral("icon-zoom-out"), QString(),
                            tr("Show more of the field, smaller"));
    connect(m_ToolBar->GetButton(BUTTON_ZOOM_IN), &TPushButton::Clicked, this,
            [this] { SetZoomLevel(m_Canvas->ZoomLevel() + 1); });
    connect(m_ToolBar->GetButton(BUTTON_ZOOM_OUT), &TPushButton::Clicked, this,
            [this] { SetZoomLevel(m_Canvas->ZoomLevel() - 1); });
    SetZoomLevel(m_Canvas->ZoomLevel());
    connect(TUnitSettings::Instance(), &TUnitSettings::Changed, this, &TGuidanceFullWindow::Refresh);
    SetTitle(tr("Guidance"));
    Refresh();
}

void TGuidanceFullWindow::SetZoomLevel(int level)
{
    SetupIfRequired();
    int const before = m_Canvas->ZoomLevel();
    m_Canvas->SetZoomLevel(level);
    m_ToolBar->SetButtonEnabled(BUTTON_ZOOM_IN, m_Canvas->ZoomLevel() < TMapView::ZoomLevelCount - 1);
    m_ToolBar->SetButtonEnabled(BUTTON_ZOOM_OUT, m_Canvas->ZoomLevel() > 0);
    if (m_Canvas->ZoomLevel() != before)
        Q_EMIT ZoomChanged();
}

int TGuidanceFullWindow::ZoomLevel() const
{
    return m_Canvas->ZoomLevel();
}

void TGuidanceFullWindow::Refresh()
{
    m_Canvas->Follow();
    bool const hasFix = m_Machine.Fix().IsValid();
    m_LightBar->SetStep(m_Machine.LightBarStep());
    m_LightBar->SetOffset(m_Machine.OffLine(), hasFix && m_Machine.Field().hasLines);
    m_Area->SetValue(Quantities::Area, m_Machine.AreaDone());
    if (hasFix)
    {
        m_Speed->SetValue(Quantities::Speed, m_Machine.Fix().speed);
        m_Heading->SetValue(Quantities::Heading, qRound(m_Machine.Heading()) % FullTurn);
    }
    else
    {
        m_Speed->SetUnknown(Quantities::Speed);
        m_Heading->SetUnknown(Quantities::Heading);
    }
}

void TGuidanceFullWindow::resizeEvent(QResizeEvent* event)
{
    TFullWindow::resizeEvent(event);
    Arrange();
    // The map takes up its new room with the window, not only at the next tick.
    m_Canvas->Follow();
}

void TGuidanceFullWindow::Arrange()
{
    if (!m_LightBar)
        return;
    QRect const room = GetWindowContent()->rect().adjusted(Margin, Margin, -Margin, -Margin);
    int const lightBarWidth = qMin(LightBarWidth, room.width() - 2 * TASK_TOOLBAR_BUTTON_WIDTH);
    m_LightBar->setGeometry(room.center().x() - lightBarWidth / 2, room.top(), lightBarWidth, LightBarHeight);
    m_ToolBar->move(GetWindowContent()->width() - TASK_TOOLBAR_BUTTON_WIDTH, 0);
    m_Legend->move(room.right() + 1 - m_Legend->width(),
                   room.bottom() + 1 - FieldHeight - Margin - m_Legend->height());
    int x = room.left();
    for (TValueField* const field : {m_Speed, m_Heading, m_Area})
    {
        field->setGeometry(x, room.bottom() + 1 - FieldHeight, FieldWidth, FieldHeight);
        x += FieldWidth + Margin;
    }
}

void TGuidanceFullWindow::SaveXMLStateSnapshot(QDomElement element)
{
    element.setAttribute(ZoomAttribute, m_Canvas->ZoomLevel());
}

void TGuidanceFullWindow::RestoreXMLStateSnapshot(QDomElement element)
{
    bool isNumber = false;
    int const level = element.attribute(ZoomAttribute).toInt(&isNumber);
    if (isNumber)
        SetZoomLevel(level);
}
