#pragma once

#include "TestSupport.h"
#include "TMMICapableWidgetNavigator.h"
#include "TMMIHighlightWidget.h"
#include "TMMITestWidget.h"

#include <QPointer>

/// A screen with a navigator on it, its clock in the hand of the test. No event loop runs, so that the only
/// ticks are those of Tick().
class TNavigatorStage
{
public:
    TNavigatorStage()
        : root(new TMMITestWidget(nullptr, calls, QStringLiteral("root"), QRect(0, 0, 800, 600)))
    {
    }
    ~TNavigatorStage()
    {
        delete navigator;
        delete root;
    }
    TNavigatorStage(TNavigatorStage const&) = delete;
    TNavigatorStage& operator=(TNavigatorStage const&) = delete;

    TMMITestWidget* Add(QWidget* parent, char const* name, QRect const& place)
    {
        auto* const widget = new TMMITestWidget(parent, calls, QString::fromLatin1(name), place);
        widget->show();
        return widget;
    }
    /// A stop of the root in the one row that these make.
    TMMITestWidget* AddStop(char const* name) { return Add(root, name, NextPlace()); }
    /// A stop of the root with two stops NAME1 and NAME2 in it.
    TMMITestWidget* AddPanel(char const* name)
    {
        TMMITestWidget* const panel = AddStop(name);
        Add(panel, (QByteArray(name) + '1').constData(), QRect(0, 0, 20, 20));
        Add(panel, (QByteArray(name) + '2').constData(), QRect(30, 0, 20, 20));
        return panel;
    }

    /// All that is left beneath \a parent.
    static QList<TMMITestWidget*> WidgetsIn(QWidget const* parent)
    {
        QList<TMMITestWidget*> widgets;
        QList<QWidget*> const children = parent->findChildren<QWidget*>();
        for (QWidget* widget : children)
        {
            if (auto* const capable = dynamic_cast<TMMITestWidget*>(widget))
                widgets << capable;
        }
        return widgets;
    }

    void Start()
    {
        root->show();
        navigator = new TMMICapableWidgetNavigator(root);
    }
    void Tick(qint64 ms = 100)
    {
        clock.Advance(ms);
        if (navigator)
            navigator->UpdateFocus();
    }
    /// Shows the selection where it is.
    void Wake()
    {
        navigator->OnWheelRight();
        navigator->OnWheelLeft();
        Tick();
    }
    void Start(int stepsToTheRight)
    {
        Start();
        Wake();
        StepRight(stepsToTheRight);
        calls.clear();
    }
    void StepRight(int steps = 1)
    {
        for (int i = 0; i < steps; ++i)
        {
            navigator->OnWheelRight();
            Tick();
        }
    }
    void Enter()
    {
        navigator->OnEnter();
        Tick();
    }

    /// The name of the widget that the glow stands around, empty when there is none to be seen.
    QString Glowing() const
    {
        TMMIHighlightWidget const* const highlight = Highlight();
        if (!highlight || !highlight->isVisible())
            return {};
        QObjectList const& siblings = highlight->parentWidget()->children();
        int const index = siblings.indexOf(const_cast<TMMIHighlightWidget*>(highlight));
        for (int i = index - 1; i >= 0; --i)
        {
            auto const* const below = qobject_cast<QWidget const*>(siblings.at(i));
            if (below)
                return below->geometry() == highlight->geometry() ? below->objectName()
                                                                  : QStringLiteral("elsewhere");
        }
        return QStringLiteral("nothing below");
    }
    TMMIHighlightWidget* Highlight() const
    {
        return root ? root->findChild<TMMIHighlightWidget*>() : nullptr;
    }
    /// Takes and empties the log.
    QStringList TakeCalls()
    {
        QStringList taken;
        taken.swap(calls);
        return taken;
    }

    TManualClock clock;
    QStringList calls;
    QPointer<TMMITestWidget> root;
    QPointer<TMMICapableWidgetNavigator> navigator;

private:
    QRect NextPlace()
    {
        m_Stops += 1;
        return QRect(m_Stops * 100 - 90, 10, 80, 40);
    }

    int m_Stops = 0;
};
