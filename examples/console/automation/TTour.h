#pragma once

#include "TVirtualOperator.h"

#include <QString>

class TConsole;
class TPushButton;
class TVirtualTime;

namespace KVN
{
class MorvaneID;
}

/// Walks through the console by its own buttons and gestures, and takes a picture of each state. The same
/// pictures in every run.
class TTour
{
public:
    TTour(TConsole* console, TVirtualTime* time, QString const& folder);

    /// Empty when everything could be shown, else what could not.
    QString Run();

private:
    void ShowMiniWindows();
    void DragMiniWindows();
    void ShowFullViews();
    void ShowLayersAndPages();
    void ShowWindowsOverTheView();
    void ShowCamera();
    void ShowMenus();
    void ShowShortcuts();
    void ShowMacroPaths();
    void ShowSwitchesInMenus();
    void ShowFarView();
    void ShowWheel();
    void ShowSetup();
    void ShowSetupScreens();
    void ShowSprayerSetup();
    void ShowJobSetup();
    void ShowUnits();
    void ShowSprayerInOtherUnits();
    void ShowDiagnostics();
    void ShowSystemToolBar();
    void ShowOffScreenButtons();
    void ShowToolTips();
    void ShowScreenshot();

    void Picture(QString const& name);
    void Press(QWidget* button, QString const& what);
    void OpenSetup(QString const& screen);
    void PressButton(QString const& objectName);
    void PressInMenu(QString const& objectName);
    void FollowMenuPath(QString const& path);
    void PressNavigation(KVN::MorvaneID const& id);
    void DragOffRight(KVN::MorvaneID const& id);
    void EndEdit(Qt::Key key);
    void SwipeUp();
    void SwipeDown();
    bool IsScreenshotOnStick() const;
    void Settle();
    void Fail(QString const& reason);

    TConsole* m_Console;
    TVirtualTime* m_Time;
    QString m_Folder;
    TVirtualOperator m_Operator;
    int m_Number = 0;
    QString m_Failure;
};
