#pragma once

#include "CommonUILibExport.h"
#include "EFitOptions.h"

#include <QColor>
#include <QLabel>

/// A text with a black shadow, for texts on pictures and maps, that can fit itself into its place: by a
/// smaller font, an ellipsis, or a greater height. Plain text of any length. For a text on a plain ground see
/// TLabel. GUI thread only.
class COMMONUILIB_EXPORT TShadowedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit TShadowedLabel(EFitOptions fit);
    TShadowedLabel(QWidget* parent, EFitOptions fit);
    TShadowedLabel(QString const& text, QWidget* parent, EFitOptions fit);
    ~TShadowedLabel() override;

    /// In place of the colour of the palette or the style sheet, which an invalid one brings back.
    void SetTextColor(QColor color);
    /// Pixels that stay free at the left of the text, 0 at first.
    void SetLeftMargin(int margin);
    /// Pixels to which the font may shrink, MINIMUM_FONT_SIZE at first.
    void SetFitMinimumTextSize(int size);
    void SetFitOption(EFitOptions fit);

    /// Where the text stands when it is laid out in \a rect, which it may leave where it does not fit.
    QRect GetTextBoundary(QRect const& rect) const;
    /// Fixes the height to that of the text, where the text does not fit in and takes no more than \a
    /// maxLines times the present height; true then. A text that is larger leaves the label as it is.
    bool SetHeight(int maxLines);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int Flags() const;

    int m_LeftMargin = 0;
    QColor m_Color;
    EFitOptions m_Fit;
    int m_FitMinimumTextSize;
};
