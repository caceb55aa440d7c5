#pragma once

#include <QPointer>
#include <QRandomGenerator>
#include <QVector>

#include <functional>

class TScreen;
class TWindow;

/// Popups and task windows in the hands of a monkey: they come, go and die in any order, also from inside one
/// another's signals.
class TMonkeyWindows
{
public:
    /// Both outlive it.
    TMonkeyWindows(TScreen* screen, QRandomGenerator* random);
    ~TMonkeyWindows();
    TMonkeyWindows(TMonkeyWindows const&) = delete;
    TMonkeyWindows& operator=(TMonkeyWindows const&) = delete;

    /// Does one thing to one of them.
    void Act();

private:
    using TDeed = std::function<void()>;

    TWindow* Any();
    TWindow* Make();
    TDeed AnyDeed(TWindow* window);
    void ActLater(TWindow* cause, TWindow* window);
    int Choose(int below) { return static_cast<int>(m_Random->bounded(static_cast<quint32>(below))); }

    TScreen* m_Screen;
    QRandomGenerator* m_Random;
    QVector<QPointer<TWindow>> m_Windows;
};
