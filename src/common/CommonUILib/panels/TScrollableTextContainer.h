#pragma once

#include "TScrollArea.h"

#include <QPointer>
#include <QString>

class TLabel;

/// A text of any length in a scroll area: as wide as the area, as high as it needs, turned by the wheel once
/// it is entered. GUI thread only.
class COMMONUILIB_EXPORT TScrollableTextContainer : public TScrollArea
{
    Q_OBJECT

public:
    explicit TScrollableTextContainer(QWidget* parent, bool framed = false);
    ~TScrollableTextContainer() override;

    /// Shows \a text, which is plain text, from its beginning; the same text goes back to its beginning too.
    void SetText(QString const& text);
    QString GetText() const;
    void SetTextFormat(Qt::Alignment alignment, bool wordWrap, QFont const& font);
    /// The height of the text in lines of \a width pixels.
    int GetTextHeightForWidth(int width) const;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void FitText();

    QPointer<TLabel> m_Label; // another content takes its place
};
