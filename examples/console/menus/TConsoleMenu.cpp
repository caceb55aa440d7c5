#include "TConsoleMenu.h"

#include "TMenuManager.h"
#include "TMenuWorker.h"

#include <algorithm>

namespace
{
bool IsOpener(TElementState const& element)
{
    return element.GetActivationConfig().GetMenuToToggle() != TActivationConfig::NoMenu;
}
} // namespace

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
    std::vector<TElementState> const elements = m_Root.GetElementsState();
    auto const end = std::find_if_not(elements.begin(), elements.end(), IsOpener);
    return m_Root.InsertElement(static_cast<int>(std::distance(elements.begin(), end)), element);
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
