#pragma once

#include "TFullWindow.h"

#include <QVector>

class TChoiceRow;
class TDisplayPage;
class TJob;
class TMachine;
class TMachinePage;
class TSetupPage;
class TTablePanel;
class TValueField;

/// The setup: pages of settings over the whole screen. It takes effect at once; closing it brings the last
/// view back.
class TMachineSetupWindow : public TFullWindow
{
    Q_OBJECT

public:
    TMachineSetupWindow(QWidget* canvas, TMachine* machine, TJob* job);

    void Setup() override;
    void Refresh() override;
    bool OnMMIBack() override;
    void SaveXMLStateSnapshot(QDomElement element) override;
    void RestoreXMLStateSnapshot(QDomElement element) override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    enum EPage
    {
        PAGE_SOUND,
        PAGE_DISPLAY,
        PAGE_SYSTEM,
        PAGE_MACHINE,
        PAGE_SPRAYER,
        PAGE_JOB,
        PAGE_COUNT
    };

    void MakePageButtons();
    void MakeSoundPage(QWidget* page);
    void MakeSystemPage(QWidget* page);
    void ShowPage(int page);
    void StepVolume(int step);
    void Sync();
    void SyncSound();
    void Arrange();

    TMachine* m_Machine;
    TJob* m_Job;
    int m_Page = PAGE_SOUND;
    QVector<TPushButton*> m_PageButtons;
    QVector<QWidget*> m_Pages;
    TChoiceRow* m_SoundRow = nullptr;
    TPushButton* m_Quieter = nullptr;
    TPushButton* m_Louder = nullptr;
    TValueField* m_Volume = nullptr;
    TTablePanel* m_About = nullptr;
    TPushButton* m_SwitchOff = nullptr;
    TDisplayPage* m_DisplayPage = nullptr;
    TMachinePage* m_MachinePage = nullptr;
    QVector<TSetupPage*> m_RowPages;
};
