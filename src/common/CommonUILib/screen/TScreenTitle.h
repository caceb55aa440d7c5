#pragma once

#include "CommonUILibExport.h"

#include <QColor>
#include <QWidget>

#include <memory>

class QFont;
class QPixmap;

/// A plain title strip with a text. The picture and the font are shared by all strips and freed with the
/// last.
class COMMONUILIB_EXPORT TScreenTitle : public QWidget
{
    Q_OBJECT

public:
    /// Colours for modules that draw strips of their own in the same look.
    static QColor const BarColor;
    static QColor const BarTextColor;

    TScreenTitle(QWidget* parent, QString const& text);
    ~TScreenTitle() override;

    void SetText(QString const& text);
    QString GetText() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    static int s_Instances;
    static QPixmap* s_Bar;
    static QFont* s_Font;

    QString m_Text;
};
