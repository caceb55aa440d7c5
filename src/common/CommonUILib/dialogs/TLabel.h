#pragma once

#include "CommonUILibExport.h"

#include <QLabel>

/// The text label of the toolkit: plain text in one colour, laid out once and drawn from a cache, of any
/// length and in any script. It wraps where QLabel::setWordWrap() says so, and may take the height that its
/// text needs by itself. Rich text and pixmaps of the base are not drawn. For a text on a picture, or one
/// that must fit into its place, see TShadowedLabel. GUI thread only.
class COMMONUILIB_EXPORT TLabel : public QLabel
{
    Q_OBJECT

public:
    explicit TLabel(QWidget* parent);
    TLabel(QString const& text, QWidget* parent);
    ~TLabel() override;

    /// In all states of the widget; regularTextColor at first. An invalid or a transparent colour shows no
    /// text.
    void SetTextColor(QColor const& color);
    /// Whether a black copy of the text stands beneath it, one pixel down and right; not so at first.
    void SetShadow(bool shadow);
    /// Pixels that stay free at the left of the text, 0 at first.
    void SetLeftMargin(int margin);
    /// Whether the label fixes its height to that of its text, at each change of text and width; not so at
    /// first. An empty text leaves the height as it is.
    void SetAdjustHeight(bool adjust);
    /// Sets the height, where the label adjusts it; to be called after a change of the font.
    void Resize();

    /// The height of the text in a label of \a width pixels, a whole number of lines.
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    /// Takes the text as it stands, markup included. The same text does nothing at all.
    void setText(QString const& text);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Init();

    bool m_Shadow = false;
    int m_LeftMargin = 0;
    bool m_AdjustHeight = false;
};
