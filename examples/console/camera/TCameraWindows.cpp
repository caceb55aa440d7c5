#include "TCameraWindows.h"

#include "TBrightnessFlyout.h"
#include "TCameraPicture.h"
#include "TPushButton.h"

namespace
{
constexpr int RefreshInterval = 100;
constexpr int BrightnessButton = 0;
constexpr int Margin = 12;
constexpr int ButtonWidth = 150;
constexpr int ButtonHeight = 66;
constexpr int ButtonRoom = ButtonHeight;
QString const BrightnessAttribute = QStringLiteral("Brightness");
} // namespace

TCameraMiniWindow::TCameraMiniWindow(TMachine const& machine, TCameraOverlay const& overlay)
    : TMiniWindow(nullptr)
    , m_Machine(machine)
    , m_Overlay(overlay)
{
    SetTitle(tr("Camera"));
}

void TCameraMiniWindow::Setup()
{
    TMiniWindow::Setup();
    m_Picture = new TCameraPicture(GetWindowContent(), m_Machine, m_Overlay);
    m_Picture->setGeometry(GetWindowContent()->rect());
}

void TCameraMiniWindow::UpdateView()
{
    if (m_Picture)
        m_Picture->Sync();
}

TCameraFullWindow::TCameraFullWindow(QWidget* canvas, TMachine const& machine, TCameraOverlay const& overlay)
    : TFullWindow(canvas)
    , m_Machine(machine)
    , m_Overlay(overlay)
{
    UseTimer(RefreshInterval);
}

void TCameraFullWindow::Setup()
{
    TFullWindow::Setup();
    m_Picture = new TCameraPicture(GetWindowContent(), m_Machine, m_Overlay);
    m_Flyout = new TBrightnessFlyout(GetWindowContent());
    connect(m_Flyout, &TBrightnessFlyout::BrightnessStepped, this,
            [this](int step) { m_Picture->SetBrightness(m_Picture->Brightness() + step); });
    AddControlButton(BrightnessButton, QString(), tr("Makes the picture darker or brighter"));
    TPushButton* const button = GetControlButtons()[BrightnessButton];
    button->SetText(tr("Brightness"), QStringLiteral("camera-brightness"), true, QString(), false);
    button->setFixedSize(ButtonWidth, ButtonHeight);
    SetButtonStartOffset(Margin);
    connect(button, &TPushButton::Clicked, this, &TCameraFullWindow::ToggleFlyout);
    SetTitle(tr("Camera"));
}

void TCameraFullWindow::ToggleFlyout()
{
    if (m_Flyout->isVisible())
        m_Flyout->HideWindow();
    else
        m_Flyout->ShowWindow(false);
}

void TCameraFullWindow::Refresh()
{
    m_Picture->Sync();
}

void TCameraFullWindow::resizeEvent(QResizeEvent* event)
{
    TFullWindow::resizeEvent(event);
    Arrange();
}

// The flyout goes with its view; it does not wait for the view to come back.
void TCameraFullWindow::hideEvent(QHideEvent* event)
{
    TFullWindow::hideEvent(event);
    if (m_Flyout)
        m_Flyout->HideWindow();
}

void TCameraFullWindow::Arrange()
{
    if (!m_Picture)
        return;
    QRect const room = GetWindowContent()->rect().adjusted(Margin, Margin, -Margin, -Margin - ButtonRoom);
    m_Picture->setGeometry(room);
    m_Flyout->move(room.left() + Margin, room.bottom() - Margin - m_Flyout->height());
    m_Flyout->raise();
}

void TCameraFullWindow::SaveXMLStateSnapshot(QDomElement element)
{
    if (m_Picture)
        element.setAttribute(BrightnessAttribute, m_Picture->Brightness());
}

void TCameraFullWindow::RestoreXMLStateSnapshot(QDomElement element)
{
    bool isNumber = false;
    int const brightness = element.attribute(BrightnessAttribute).toInt(&isNumber);
    if (!isNumber)
        return;
    SetupIfRequired();
    m_Picture->SetBrightness(brightness);
}
