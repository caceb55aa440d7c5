#pragma once

#include <QString>
#include <QStringList>

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <vector>

/// One thing that happens to a set of menus.
struct TMenuStep
{
    enum EKind
    {
        LEAD,     ///< "lead menu target": a new element
        SEE,      ///< "see menu element 0|1"
        CONTROL,  ///< "control menu element 0|1"
        SHORTCUT, ///< "short menu element 0|1"
        MODE,     ///< "mode menu element 0..2": its hide mode
        PRESS,    ///< "press menu element"
        TOGGLE,   ///< "toggle menu parent element"
        FORCE,    ///< "force menu"
        HIDE,     ///< "hide menu"
        SHOW,     ///< "show menu"
        HIDE_ALL, ///< "all"
        MENUS,    ///< "menus enabled hide"
        AUTO,     ///< "auto allowed"
        ENABLE,   ///< "enable menu 0|1"
        REMOVE    ///< "remove menu"
    };

    static QStringList const& Words()
    {
        static QStringList const words =
            QStringLiteral(
                "lead see control short mode press toggle force hide show all menus auto enable remove")
                .split(QLatin1Char(' '));
        return words;
    }

    static TMenuStep From(QString const& text)
    {
        QStringList const words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        int const kind = Words().indexOf(words.value(0));
        Q_ASSERT(kind >= 0);
        return {static_cast<EKind>(kind), words.value(1).toInt(), words.value(2).toInt(),
                words.value(3).toInt()};
    }

    QString Text() const
    {
        return QStringLiteral("%1 %2 %3 %4").arg(Words().at(kind)).arg(menu).arg(element).arg(value);
    }

    /// At first elements are made; a removed menu is rare.
    static TMenuStep Random(std::mt19937& random, int menus, bool isFirst)
    {
        auto const below = [&random](int end) { return static_cast<int>(random() % unsigned(end)); };
        if (isFirst)
            return {LEAD, below(menus), below(menus + 1) - 1, 0};
        auto kind = static_cast<EKind>(below(REMOVE + 1));
        if (kind == REMOVE && below(8) != 0)
            kind = PRESS;
        TMenuStep step{kind, below(menus), below(4), below(kind == MODE ? 3 : 2)};
        if (kind == MENUS || kind == AUTO)
            step.menu = below(2);
        if (kind == MENUS || kind == ENABLE)
            step.element = below(2);
        if (kind == TOGGLE)
            step.element = below(menus + 1) - 1;
        return step;
    }

    EKind kind;
    int menu;
    int element;
    int value;
};

struct TModelElement
{
    int target;
    bool visible = true;
    bool control = true;
    bool shortcut = false;
    int mode = 0;

    bool Seen() const { return visible && control; }
};

struct TModelMenu
{
    bool known = true;
    bool shown = false;
    bool closed = false;
    bool forced = false;
    int parent = -1;
    int parentElement = 0;
    int disabled = 0;
    std::set<int> children;
    std::set<int> shortcuts;
    std::vector<TModelElement> elements;
};

/// What menus do, written down once more, without threads, locks and signals: every step is settled before
/// the next.
class TMenuModel
{
public:
    TMenuModel(int count, int root)
        : menus(static_cast<size_t>(count))
        , m_Root(root)
    {
        menus.at(root).shown = true;
        order.push_back(root);
    }

    void Step(TMenuStep const& step)
    {
        switch (step.kind)
        {
        case TMenuStep::PRESS:
            Press(step.menu, step.element);
            break;
        case TMenuStep::TOGGLE:
            Toggle(step.menu, step.element, step.value);
            break;
        case TMenuStep::FORCE:
            Force(step.menu);
            break;
        case TMenuStep::HIDE:
            Close(step.menu, true);
            break;
        case TMenuStep::SHOW:
            Show(step.menu, -1, 0, false, false);
            break;
        case TMenuStep::HIDE_ALL:
            CloseAll();
            break;
        case TMenuStep::MENUS:
            Switch(step.menu != 0, step.element != 0);
            break;
        case TMenuStep::AUTO:
            m_AutoHide = step.menu != 0;
            break;
        case TMenuStep::ENABLE:
            Count(menus.at(step.menu), step.element != 0);
            break;
        case TMenuStep::REMOVE:
            Remove(step.menu);
            break;
        default:
            Change(step);
        }
    }

    std::vector<TModelMenu> menus;
    std::vector<int> order;

private:
    bool Known(int id) const { return id >= 0 && id < int(menus.size()) && menus.at(id).known; }

    static void Count(TModelMenu& menu, bool enable)
    {
        if (!enable)
            ++menu.disabled;
        else if (menu.disabled > 0)
            --menu.disabled;
    }

    void Change(TMenuStep const& step)
    {
        std::vector<TModelElement>& elements = menus.at(step.menu).elements;
        if (step.kind == TMenuStep::LEAD)
        {
            elements.push_back({step.element});
            return;
        }
        if (step.element >= int(elements.size()))
            return;
        TModelElement& element = elements.at(step.element);
        bool* const flag = step.kind == TMenuStep::SEE       ? &element.visible
                           : step.kind == TMenuStep::CONTROL ? &element.control
                                                             : &element.shortcut;
        int const before = step.kind == TMenuStep::MODE ? element.mode : int(*flag);
        if (step.kind == TMenuStep::MODE)
            element.mode = step.value;
        else
            *flag = step.value != 0;
        if (before != step.value)
            Look(step.menu);
    }

    void Press(int id, int elementID)
    {
        if (!Known(id) || elementID >= int(menus.at(id).elements.size()))
            return;
        TModelElement const element = menus.at(id).elements.at(elementID);
        if (!element.Seen() || menus.at(id).disabled > 0)
            return;
        if (m_AutoHide && element.mode == 1)
            Close(id, false);
        if (m_AutoHide && element.mode == 2)
            CloseAll();
        if (element.target != -1)
            Toggle(element.target, id, elementID);
    }

    void Toggle(int id, int parent, int element)
    {
        if (!Known(id))
            return;
        TModelMenu const& menu = menus.at(id);
        bool const isFromThere = parent == -1 || parent == menu.parent;
        if (menu.shown && id != m_Root && isFromThere)
            return Close(id, true);
        bool keep = false;
        for (TModelElement const& one : menu.elements)
            keep |= one.shortcut && one.Seen();
        Show(id, parent, element, keep, true);
    }

    void Force(int id)
    {
        if (!Known(id))
            return;
        TModelMenu& menu = menus.at(id);
        if (std::none_of(menu.elements.begin(), menu.elements.end(),
                         [](TModelElement const& one) { return one.shortcut; }))
            return;
        menu.forced = true;
        menu.closed = false;
        OpenShortcuts();
    }

    void Look(int id)
    {
        if (!Known(id))
            return;
        std::set<int> shortcuts;
        int seen = 0;
        for (int index = 0; index < int(menus.at(id).elements.size()); ++index)
        {
            TModelElement const element = menus.at(id).elements.at(index);
            if (element.Seen())
                ++seen;
            else if (Known(element.target) && menus.at(element.target).shown)
                Close(element.target, false);
            if (element.Seen() && element.shortcut)
                shortcuts.insert(index);
        }
        if (menus.at(id).forced && seen == 0)
            Close(id, false);
        if (shortcuts != menus.at(id).shortcuts)
        {
            menus.at(id).forced = menus.at(id).shown;
            CloseChildren(id, true);
            menus.at(id).shortcuts = shortcuts;
        }
        OpenShortcuts();
    }

    void Switch(bool enabled, bool hide)
    {
        if (enabled == m_Enabled)
            return;
        for (TModelMenu& menu : menus)
        {
            if (menu.known)
                Count(menu, enabled);
        }
        m_Enabled = enabled;
        OpenShortcuts();
        if (!enabled && hide)
            CloseAll();
    }

    void Remove(int id)
    {
        if (!Known(id))
            return;
        TModelMenu& menu = menus.at(id);
        menu.known = false;
        if (menu.shown || !menu.children.empty())
        {
            TakeAway(id);
            OpenShortcuts();
        }
        int const disabled = menu.disabled - (m_Enabled || menu.disabled == 0 ? 0 : 1);
        std::vector<TModelElement> const elements = menu.elements;
        menu = TModelMenu();
        menu.known = false;
        menu.disabled = disabled;
        menu.elements = elements;
    }

    void Show(int id, int parent, int element, bool keep, bool forced)
    {
        if (!Known(id))
            return;
        if (Known(parent))
        {
            CloseChildren(parent, !keep);
            menus.at(parent).children.insert(id);
        }
        TModelMenu& menu = menus.at(id);
        menu.shown = true;
        menu.closed = false;
        menu.forced = forced;
        menu.parent = parent;
        menu.parentElement = element;
        order.erase(std::remove(order.begin(), order.end(), id), order.end());
        order.push_back(id);
    }

    void CloseChildren(int id, bool all)
    {
        std::set<int> const children = menus.at(id).children;
        for (int const child : children)
        {
            if (all || menus.at(child).shortcuts.empty() || !menus.at(child).forced)
                TakeAway(child);
        }
    }

    void TakeAway(int id)
    {
        TModelMenu& menu = menus.at(id);
        menu.shown = false;
        menu.forced = false;
        order.erase(std::remove(order.begin(), order.end(), id), order.end());
        std::set<int> children;
        children.swap(menu.children);
        for (TModelMenu& other : menus)
            other.children.erase(id);
        for (int const child : children)
            TakeAway(child);
    }

    void Close(int id, bool byUser)
    {
        if (id < 0 || id >= int(menus.size()) || (!menus.at(id).known && !menus.at(id).shown))
            return;
        TakeAway(id);
        OpenShortcuts();
        menus.at(id).shown = false;
        order.erase(std::remove(order.begin(), order.end(), id), order.end());
        for (TModelMenu& other : menus)
            other.children.erase(id);
        menus.at(id).closed = menus.at(id).closed || byUser;
    }

    void CloseAll()
    {
        for (TModelMenu& menu : menus)
            menu.children.erase(m_Root);
        for (int id = 0; id < int(menus.size()); ++id)
        {
            if (id != m_Root && menus.at(id).shown)
                TakeAway(id);
        }
        OpenShortcuts();
    }

    void OpenShortcuts()
    {
        for (int id = 0; m_Enabled && id < int(menus.size()); ++id)
        {
            if (!Known(id))
                continue;
            std::vector<TModelElement> const& elements = menus.at(id).elements;
            bool isTaken = false;
            for (TModelElement const& element : elements)
                isTaken |=
                    menus.at(id).children.count(element.target) > 0 && !menus.at(element.target).forced;
            for (int index = 0; !isTaken && index < int(elements.size()); ++index)
            {
                int const target = elements.at(index).target;
                if (elements.at(index).Seen() && Known(target) && !menus.at(target).shortcuts.empty() &&
                    !menus.at(target).closed)
                    Show(target, id, index, true, false);
            }
        }
    }

    int const m_Root;
    bool m_Enabled = true;
    bool m_AutoHide = true;
};
