#pragma once

#include "TFullWindow.h"

#include <QVector>

#include <memory>

class TCalibrationWindow;
class TDialPages;
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
    ~TSprayerFullWindow() override;

    void Setup() override;
    void Refresh() override;
    void SaveXMLStateSnapshot(QDomElement element) override;
    void RestoreXMLStateSnapshot(QDomElement element) override;

Q_SIGNALS:
    /// The operator wants the tank emptied; he has not been asked twice yet.
    void DrainRequested();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void MakeButtons();
    TPushButton* MakeTankButton(QString const& text, QString const& name, QString const& toolTip);
    void Calibrate();
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
    TPushButton* m_Drain = nullptr;
    TPushButton* m_Calibrate = nullptr;
    TTankGauge* m_Tank = nullptr;
    TValueField* m_Rate = nullptr;
    TDialPages* m_Dials = nullptr;
    std::unique_ptr<TCalibrationWindow> m_Calibration;
};
