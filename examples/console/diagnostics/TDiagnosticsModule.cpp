#include "TDiagnosticsModule.h"

#include "PixmapNames.h"
#include "TScreen.h"

#include <QCoreApplication>

TDiagnosticsModule::TDiagnosticsModule(QWidget* screen, TJob const& job)
    : m_Canvas(nullptr)
    , m_Window(&m_Canvas, screen, job)
{
    m_Canvas.SetBackground(PixmapNames::BkgDiagnostics800x600);
}

KVN::MorvaneID TDiagnosticsModule::Id()
{
    return KVN::MorvaneID(QUuid(QStringLiteral("{0e9d5f37-21c4-4b8a-96f2-8c1b4d7e5a60}")));
}

void TDiagnosticsModule::RegisterViews(TScreen* screen)
{
    screen->AssignNavActionButton(Id(), QStringLiteral("icon-diagnostics"), &m_Canvas, &m_Window,
                                  QCoreApplication::translate("TDiagnosticsModule", "Diagnostics"));
    // The column at the right, where the system tool bar stands, stays free.
    m_Canvas.SetFullWindow(&m_Window, true);
}
