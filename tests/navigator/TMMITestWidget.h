#pragma once

#include "MMICapableWidget.h"

#include <QStringList>
#include <QWidget>

#include <functional>

/// A widget that takes part in wheel navigation, writes each call of a handler into a log, and does in it
/// what a test likes, which may be to delete the widget.
class TMMITestWidget : public QWidget, public KVN::MMICapableWidget
{
public:
    using THandler = std::function<void()>;

    TMMITestWidget(QWidget* parent, QStringList& calls, QString const& name, QRect const& place = QRect())
        : QWidget(parent)
        , m_Calls(calls)
    {
        setObjectName(name);
        if (place.isValid())
            setGeometry(place);
    }

    void OnMMIWheelLeft() override { Call(QStringLiteral("left "), wheelLeft); }
    void OnMMIWheelRight() override { Call(QStringLiteral("right "), wheelRight); }
    bool OnMMIBack() override
    {
        bool const answer = backAnswer;
        Call(QStringLiteral("back "), back);
        return answer;
    }
    void OnMMIHighlightChild(KVN::MMICapableWidget* child) override
    {
        m_Calls << QStringLiteral("child ") + child->Widget()->objectName();
        THandler const handler = highlightChild;
        if (handler)
            handler();
    }
    void OnMMIHighlight() override { Call(QStringLiteral("+"), highlight); }
    void OnMMIUnHighlight() override { Call(QStringLiteral("-"), unHighlight); }
    KVN::MMICapableWidget* OnMMIEnter() override
    {
        KVN::MMICapableWidget* const answer = enterAnswer ? enterAnswer() : GetMMIEntryWidget();
        Call(QStringLiteral("enter "), enter);
        return answer;
    }
    unsigned GetMMISortPrecedence() override { return precedence; }
    bool GetMMIColumnFirst() override { return columnFirst; }
    KVN::MMICapableWidget* GetMMIEntryWidget() override { return entryWidget ? entryWidget : this; }
    bool GetMMICarryOverSelection() override { return carryOver; }
    bool GetMMITimeoutEnabled() const override { return timeoutEnabled; }
    unsigned GetMMISelectionDelay() override { return selectionDelay; }
    bool IsMMIChildNavigatable(KVN::MMICapableWidget* child) const override
    {
        return child != refusedChild && MMICapableWidget::IsMMIChildNavigatable(child);
    }

    THandler wheelLeft;
    THandler wheelRight;
    THandler back;
    THandler highlightChild;
    THandler highlight;
    THandler unHighlight;
    THandler enter;
    std::function<KVN::MMICapableWidget*()> enterAnswer;
    KVN::MMICapableWidget* entryWidget = nullptr;
    KVN::MMICapableWidget* refusedChild = nullptr;
    unsigned precedence = 0;
    unsigned selectionDelay = 0;
    bool backAnswer = true;
    bool columnFirst = false;
    bool carryOver = false;
    bool timeoutEnabled = true;

private:
    // The handler may delete this object, and with it the function that is running: it runs as a copy.
    void Call(QString const& what, THandler const& member)
    {
        m_Calls << what + objectName();
        THandler const handler = member;
        if (handler)
            handler();
    }

    QStringList& m_Calls;
};
