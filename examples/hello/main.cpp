#include "IConsoleModule.h"
#include "Palette.h"
#include "RenderUtils.h"
#include "TCanvas.h"
#include "TConsoleShell.h"
#include "TFullWindow.h"
#include "TMiniWindow.h"
#include "TPushButton.h"
#include "TScreen.h"

#include <QApplication>
#include <QPainter>
#include <QStandardPaths>

namespace
{
KVN::MorvaneID const HelloId(QUuid(QStringLiteral("{3b0f2a4e-6f0c-4d0e-9a53-0d1c5a7b9e21}")));

/// The full view: a line of large type on a canvas of one colour.
class THelloWindow : public TFullWindow
{
public:
    using TFullWindow::TFullWindow;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        TFullWindow::paintEvent(event);
        QPainter painter(this);
        KVN::RenderUtils::RenderTextInsideRect(&painter, rect(), Qt::AlignCenter, QObject::tr("Hello, field"),
                                               64, 16, regularTextColor, true, true, true, true, false);
    }
};

/// A module with one mini window, in which a button counts its clicks, and one full view.
class THelloModule : public IConsoleModule
{
public:
    THelloModule()
        : m_Mini(nullptr)
        , m_Canvas(nullptr)
        , m_Full(&m_Canvas)
        , m_Button(m_Mini.GetWindowContent(), QStringLiteral("icon-plus-larger"), QSize(160, 100),
                   QPoint(44, 60), 0, QString())
    {
        m_Mini.SetTitle(QObject::tr("Hello"));
        m_Canvas.SetBackgroundColor(QColor(24, 40, 30));
        QObject::connect(
            &m_Button, &TPushButton::Clicked, &m_Button,
            [this] { m_Button.SetText(QString::number(++m_Clicks), QString(), true, QString(), false); });
    }

    void RegisterViews(TScreen* screen) override
    {
        screen->AssignNavButton(HelloId, QStringLiteral("icon-info"), &m_Mini, &m_Canvas, &m_Full,
                                QObject::tr("Hello"));
    }

private:
    TMiniWindow m_Mini;
    TCanvas m_Canvas;
    THelloWindow m_Full;
    TPushButton m_Button;
    int m_Clicks = 0;
};
} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("hello"));
    TConsoleShell shell(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
    shell.AddModule(std::make_unique<THelloModule>());
    shell.Start(HelloId);
    return QApplication::exec();
}
