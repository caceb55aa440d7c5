#pragma once

#include <QPixmap>
#include <QSharedPointer>
#include <QString>

class QWidget;

/// Who explains buttons on a screen: what THostPlatform hands the tool-tip calls of the toolkit to. See
/// MorvanePlatformInterface for what each of them means. GUI thread only.
class IToolTipController
{
public:
    virtual ~IToolTipController() = default;

    virtual bool ToolTipVisible() const = 0;
    virtual bool IsToolTipShownFor(QWidget* source) const = 0;
    virtual void ShowToolTipFor(QWidget* source, int placement, QString const& text,
                                QSharedPointer<QPixmap> icon) = 0;
    virtual void HideToolTip() = 0;
};
