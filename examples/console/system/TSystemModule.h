#pragma once

#include "IConsoleModule.h"

#include <QObject>
#include <QPointer>
#include <QVector>

enum EDriveResult : int;
class TPushButton;
class TScreen;
class TSystemToolBar;
class TToolTipMode;
class TUSBErrorMessage;
class TUsbWatch;

/// What the operator has at hand whatever the view: the system tool bar in the corner of the screen, with the
/// way back to the default view, the USB stick and the way to the strip; and the strip below the lower edge,
/// with what is needed rarely. A swipe brings the strip, and so does the bar, for whoever turns the wheel. It
/// has no view of its own.
///
/// To add a button of the console's own, add a row to the tables in the source. Other modules add theirs by
/// TScreen::AddSystemToolBarButton() and TScreen::AddOffscreenButton().
class TSystemModule : public QObject, public IConsoleModule
{
    Q_OBJECT

public:
    /// \a toolTips may be null and may die first; nothing is explained then.
    explicit TSystemModule(TToolTipMode* toolTips);
    ~TSystemModule() override;

    void RegisterViews(TScreen* screen) override;

    /// Puts a button on the strip that inserts and pulls the folder that \a watch has in place of a stick.
    /// Nothing for null, where the sticks are the system's, before RegisterViews(), and the second time.
    void OfferStick(TUsbWatch* watch);

private:
    void MakeBar();
    void MakeStrip();
    void MakeToolTipButton();
    TPushButton* AddToStrip(QString const& icon, QString const& toolTip);
    void ShowToolTipMode(bool on);
    void ShowStick(bool present);
    void OnSaveFailed(EDriveResult result);

    QPointer<TScreen> m_Screen;
    QPointer<TUSBErrorMessage> m_ErrorMessage; // made at the first failure
    QPointer<TToolTipMode> m_ToolTips;
    QPointer<TSystemToolBar> m_Bar;
    QPointer<TPushButton> m_ToolTipButton;
    QPointer<TPushButton> m_StickButton;
    QVector<QPointer<TPushButton>> m_StripButtons;
};
