#pragma once

#include "IConsoleModule.h"
#include "ModuleIds.h"
#include "MorvaneID.h"
#include "TCanvas.h"
#include "TFullWindow.h"
#include "TMiniWindow.h"
#include "TPushButton.h"
#include "TScreen.h"

/// A module with one view of a mini window, a canvas and a full window.
class TTestModule : public IConsoleModule
{
public:
    explicit TTestModule(KVN::MorvaneID const& id)
        : m_Id(id)
        , m_Mini(nullptr)
        , m_Canvas(nullptr)
        , m_Full(&m_Canvas)
        , m_Button(m_Full.GetWindowContent(), QString(), QSize(80, 60), QPoint(20, 20), 0, QString())
    {
    }

    void RegisterViews(TScreen* screen) override
    {
        m_ViewId = screen->AssignNavButton(m_Id, QStringLiteral("icon-info"), &m_Mini, &m_Canvas, &m_Full,
                                           QString());
    }

    static KVN::MorvaneID Id(int number)
    {
        return KVN::MorvaneID(QUuid(0x1234, 0x56, 0x78, 9, 8, 7, 6, 5, 4, 3, uchar(number)));
    }

    KVN::MorvaneID m_Id;
    TMiniWindow m_Mini;
    TCanvas m_Canvas;
    TFullWindow m_Full;
    TPushButton m_Button;
    int m_ViewId = -1;
};
