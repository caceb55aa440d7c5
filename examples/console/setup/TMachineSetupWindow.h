#pragma once

#include "TFullWindow.h"

#include <QHash>

class TJob;
class TMachine;
class TSetupMenu;
class TSoundPage;

/// The setup: pages of settings over the whole screen, and the menu that leads to them. It takes effect at
/// once; closing it brings the last view back.
class TMachineSetupWindow : public TFullWindow
{
    Q_OBJECT

public:
    TMachineSetupWindow(QWidget* canvas, TMachine* machine, TJob* job);

    void Setup() override;
    void Refresh() override;
    bool OnMMIBack() override;
    void SaveXMLStateSnapshot(QDomElement element) override;
    /// Anything but the path of a screen that the menu shows is ignored.
    void RestoreXMLStateSnapshot(QDomElement element) override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void MakePages();
    void AddPage(char const* screen, QWidget* page);
    void ShowPage(QString const& screen);
    void Arrange();

    TMachine* m_Machine;
    TJob* m_Job;
    TSetupMenu* m_Menu = nullptr;
    TSoundPage* m_SoundPage = nullptr;
    QHash<QString, QWidget*> m_Pages; // by the paths of their screens
};
