#pragma once

#include "TActivationConfig.h"
#include "TMenuElement.h"
#include "TMMIDef.h"

#include <QString>
#include <QVector>

#include <memory>
#include <vector>

class TConsoleMenu;
class TMenuState;

/// The menus of one module: each is known to the manager from its making, and all are taken out of it, and
/// their elements out of the root menu, before they die. GUI thread only.
class TMenuSet
{
public:
    /// A menu, and the steps that lead there; none for the root menu.
    struct TPlace
    {
        TMenuState* menu = nullptr;
        TMMIDef def;
    };
    /// How an element is found and seen.
    struct TItem
    {
        QString macroName; ///< no slash in it
        QString name;
        QString icon; ///< empty: its name stands on the button
    };
    /// A menu with the element that opens it.
    struct TOpened
    {
        TPlace place;
        TMenuElement opener;
    };

    /// \a console has to live longer.
    explicit TMenuSet(TConsoleMenu* console);
    ~TMenuSet();
    TMenuSet(TMenuSet const&) = delete;
    TMenuSet& operator=(TMenuSet const&) = delete;

    /// A new menu, to be opened by a new element of the root menu, which may be a shortcut too.
    TOpened AddToRoot(TItem const& item, bool isShortcut);
    /// The same in a menu of the module.
    TOpened AddMenu(TPlace const& place, TItem const& item);
    /// An element that does what \a config says.
    TMenuElement Add(TPlace const& place, TItem const& item, TActivationConfig const& config);
    /// The same as a shortcut, which stands in the root menu.
    TMenuElement AddShortcut(TItem const& item, TActivationConfig const& config);

private:
    TMenuState* MakeMenu(TItem const& item);

    TConsoleMenu* m_Console;
    std::vector<std::unique_ptr<TMenuState>> m_Menus;
    QVector<int> m_RootElements;
};
