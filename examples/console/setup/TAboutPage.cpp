#include "TAboutPage.h"

#include "MainScreen.h"
#include "Metrics.h"
#include "Palette.h"
#include "PixmapNames.h"
#include "TPushButton.h"
#include "TScreen.h"
#include "TTablePanel.h"

#include <QCoreApplication>

namespace
{
constexpr int RowHeight = 40;
constexpr int RowTextSize = 18;
constexpr int RowCount = 3;
constexpr int Gap = 24;
constexpr int ButtonHeight = 84;
constexpr int ButtonTextSize = 20;
constexpr int IconMargin = 18;
constexpr int CleanStop = 0;
constexpr int Centred = Qt::AlignHCenter | Qt::AlignVCenter;
} // namespace

TAboutPage::TAboutPage(QWidget* parent)
    : QWidget(parent)
    , m_About(new TTablePanel(this, RowHeight, RowTextSize))
    , m_SwitchOff(new TPushButton(this, QStringLiteral("icon-power"), PixmapNames::NewRedButton,
                                  PixmapNames::NewRedButtonSelected, 0,
                                  tr("Keeps the layout and stops the console")))
{
    SetMMIBehaviour(MMI_TRANSPARENT);
    m_About->SetRows({{tr("Console"), QCoreApplication::applicationVersion(), {}},
                      {tr("Qt"), QLatin1String(qVersion()), {}},
                      {tr("Screen"), tr("%1 × %2").arg(SCREEN_WIDTH).arg(SCREEN_HEIGHT), {}}});
    m_SwitchOff->SetText(tr("Switch off"), QString(), true, QString(), false);
    m_SwitchOff->SetIconPosition(QPoint(IconMargin, 0), true);
    m_SwitchOff->SetFontProperties(regularButtonTextColor, ButtonTextSize, true, false, false, Centred,
                                   false);
    connect(m_SwitchOff, &TPushButton::Clicked, this,
            []
            {
                if (MainScreen)
                    Q_EMIT MainScreen->RequestShutdown(CleanStop);
            });
}

void TAboutPage::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_About->setGeometry(0, 0, width(), RowCount * RowHeight);
    m_SwitchOff->setGeometry(0, RowCount * RowHeight + Gap, width() / 2, ButtonHeight);
}
