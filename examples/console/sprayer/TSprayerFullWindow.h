#pragma once

#include "TFullWindow.h"

#include <QVector>

class TMachine;
class TSectionButton;
class TTankGauge;
class TValueField;

/// The sprayer in full: master switch, sections, tank, rate and flow.
class TSprayerFullWindow : public TFullWindow
{
    Q_OBJECT

public:
    TSprayerFullWindow(QWidget* canvas, TMachine* machine);

    void Setup() override;
    void Refresh() override;
    void SaveXMLStateSnapshot(QDomElement element) override;
    void RestoreXMLStateSnapshot(QDomElement element) override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void MakeButtons();
    void MakeFields();
    void SyncMaster();
    void Arrange();
    void ArrangeColumn(QRect const& room);

    TMachine* m_Machine;
    QVector<TSectionButton*> m_Sections;
    TPushButton* m_Master = nullptr;
    TPushButton* m_Less = nullptr;
    TPushButton* m_More = nullptr;
    TPushButton* m_Fill = nullptr;
    TTankGauge* m_Tank = nullptr;
    TValueField* m_Rate = nullptr;
    TValueField* m_Flow = nullptr;
    TValueField* m_Area = nullptr;
};
