#pragma once

#include "ConsoleHostLibExport.h"
#include "MorvanePlatformInterface.h"

#include <QPointer>

#include <memory>

class TAnnotationLayer;
class TScreen;
class TToolTipMode;
class TWindowStacks;

/// The platform of a console with one screen: popups and task windows go to stacks, one of each for every
/// module, annotations to a layer above all, tool tips to their mode. TConsoleShell builds it; a host without
/// the shell builds it after the screen and deletes it before. GUI thread only.
class CONSOLEHOSTLIB_EXPORT THostPlatform : public MorvanePlatformInterface
{
    Q_OBJECT

public:
    /// \a screen may not be null, and may die before the platform; nothing is shown any more then.
    explicit THostPlatform(TScreen* screen, QObject* parent = nullptr);
    ~THostPlatform() override;

    TWindowStacks* GetWindowStacks() const;
    /// For whoever switches the mode.
    TToolTipMode* GetToolTipMode() const;

    void ShowPopupWindow(TPopupWindow* window, bool localWindow) override;
    void ShowTaskWindow(TTaskWindow* window, bool localWindow) override;
    void ShowAnnotation(QWidget* widget, KVN::IAnnotationHandler* handler, QWidget* source) override;
    void HideAnnotation(QWidget* widget) override;
    bool ToolTipVisible() const override;
    bool IsToolTipShownFor(QWidget* source) const override;
    void ShowToolTipFor(QWidget* source, int placement, QString const& text,
                        QSharedPointer<QPixmap> icon) override;
    void HideToolTip() override;
    QWidget* GetTopLevelWindow() const override;

private:
    template<typename TStacked>
    void Show(TStacked* window);

    QPointer<TScreen> m_Screen;
    std::unique_ptr<TWindowStacks> m_Stacks;
    std::unique_ptr<TAnnotationLayer> m_Annotations;
    std::unique_ptr<TToolTipMode> m_ToolTips;
};
