#include "MenuViews.h"

#include "MainScreen.h"
#include "TScreen.h"
#include "TWindowManager.h"

// Shown once more, it would count as its own predecessor.
void MenuViews::ShowFullView(KVN::MorvaneID const& id)
{
    if (!MainScreen)
        return;
    TWindowManager* const views = MainScreen->GetWindowManager();
    int const view = MainScreen->GetNavButtonID(id);
    if (views->GetFullViewId() != view)
        views->DisplayFullView(view, true);
}
