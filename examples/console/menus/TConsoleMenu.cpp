#include "TConsoleMenu.h"

#include "TMenuManager.h"
#include "TMenuWorker.h"

TConsoleMenu::TConsoleMenu(TMenuManager* manager)
    : m_Manager(manager)
    , m_Root(tr("Menus"))
    , m_RootID(manager->AddMenu(&m_Root))
{
}

TConsoleMenu::~TConsoleMenu()
{
    m_Manager->RemoveMenu(m_RootID);
}

void TConsoleMenu::RegisterViews(TScreen* screen)
{
    Q_UNUSED(screen)
    m_Manager->SetRootMenuID(m_RootID, true);
}

int TConsoleMenu::AddOpener(TElementState const& element)
{
    return m_Root.InsertElement(m_OpenerCount++, element);
}

int TConsoleMenu::AddShortcut(TElementState const& element)
{
    return m_Root.AddElement(element);
}

void TConsoleMenu::AddWorker(TMenuWorker* worker)
{
    m_Workers.append(worker);
}

void TConsoleMenu::RemoveWorker(TMenuWorker* worker)
{
    m_Workers.removeOne(worker);
}

void TConsoleMenu::WaitForWorkers()
{
    for (TMenuWorker* const worker : qAsConst(m_Workers))
        worker->Wait();
}
