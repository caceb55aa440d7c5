#pragma once

#include "MainScreen.h"
#include "TCanvas.h"
#include "TFullWindow.h"
#include "TMiniWindow.h"
#include "TScreen.h"
#include "TWindowManager.h"

#include <QUuid>

/// A full view that reaches below the mini windows, so that a slide moves the mini window alone.
class TOverlappedFull : public TFullWindow
{
public:
    TOverlappedFull()
        : TFullWindow(nullptr)
    {
        SetMiniViewsOverlap(true);
    }
};

/// A shown screen with a number of views for one measurement.
class TBenchScreen
{
public:
    explicit TBenchScreen(int views)
        : m_Screen(new TScreen)
    {
        MainScreen = m_Screen;
        m_Screen->Setup();
        for (int i = 0; i < views; ++i)
            AddView(new TMiniWindow(nullptr), new TFullWindow(nullptr));
        m_Screen->show();
    }
    ~TBenchScreen()
    {
        qDeleteAll(m_Minis);
        delete m_Screen;
    }
    TBenchScreen(TBenchScreen const&) = delete;
    TBenchScreen& operator=(TBenchScreen const&) = delete;

    void AddView(TMiniWindow* mini, TFullWindow* full)
    {
        auto* const canvas = new TCanvas(m_Screen);
        canvas->SetBackgroundColor(Qt::darkGray);
        QUuid const module(uint(m_Minis.size() + 1), 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
        m_Ids.append(m_Screen->AssignNavButton(KVN::MorvaneID(module), QStringLiteral("icon-info"), mini,
                                               canvas, full, {}));
        m_Minis.append(mini);
    }

    TScreen* Screen() const { return m_Screen; }
    TWindowManager* Manager() const { return m_Screen->GetWindowManager(); }
    int Id(int view) const { return m_Ids[view]; }
    TMiniWindow* Mini(int view) const { return m_Minis[view]; }

private:
    TScreen* m_Screen;
    QVector<QPointer<TMiniWindow>> m_Minis;
    QVector<int> m_Ids;
};
