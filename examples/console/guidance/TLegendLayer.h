#pragma once

#include <QColor>
#include <QString>
#include <QVector>
#include <QWidget>

class TPushButton;

/// One layer of the map explained: its name on a button, and below it what its colours stand for.
class TLegendLayer : public QWidget
{
    Q_OBJECT

public:
    struct TEntry
    {
        QColor color;
        QString text;
    };

    static constexpr int TitleHeight = 48;
    static constexpr int EntryHeight = 30;

    /// \a name is what the button is called by.
    TLegendLayer(QWidget* parent, QString const& name, QString const& title, QVector<TEntry> const& entries);

Q_SIGNALS:
    void TitlePressed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    TPushButton* m_Title;
    QVector<TEntry> m_Entries;
};
