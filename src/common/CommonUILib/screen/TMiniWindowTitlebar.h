#pragma once

#include "CommonUILibExport.h"
#include "MMICapableWidget.h"

#include <QPixmap>
#include <QWidget>

class QFont;
class TPushButton;

/// The title bar of a mini window: hide, title, maximise. The wheel stops on its two buttons; the title in
/// the middle is a button only for the tool tip of a title that does not fit.
class COMMONUILIB_EXPORT TMiniWindowTitlebar : public QWidget, public KVN::MMICapableWidget
{
    Q_OBJECT

public:
    explicit TMiniWindowTitlebar(QWidget* parent);

    TPushButton* GetHideButton() const;
    TPushButton* GetMaximizeButton() const;

    /// Elides the title to the room between the buttons.
    void SetTitle(QString const& title);

    /// Shared by all title bars, loaded by the first and kept.
    static QPixmap* TitleBar;
    static QFont* FontPtr;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap DrawFace() const;

    TPushButton* m_HideButton;
    TPushButton* m_MaximizeButton;
    TPushButton* m_CentreButton;
    QString m_Title;
    QPixmap m_Face;
};
