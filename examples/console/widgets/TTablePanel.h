#pragma once

#include <QColor>
#include <QString>
#include <QVector>
#include <QWidget>

/// One line of a table: what, and how much.
struct TTableRow
{
    QString name;
    QString value;
    QColor mark; ///< a bar of this colour in front, where it is valid

    bool operator==(TTableRow const& other) const
    {
        return name == other.name && value == other.value && mark == other.mark;
    }
    bool operator!=(TTableRow const& other) const { return !(*this == other); }
};

/// Names at the left and values at the right, row by row. Rows that do not fit are left out. Only the rows
/// that changed are painted again.
class TTablePanel : public QWidget
{
    Q_OBJECT

public:
    /// Of each row's width the names get so many percent, unless told.
    static constexpr int NameShare = 42;

    TTablePanel(QWidget* parent, int rowHeight, int textSize, int nameShare = NameShare);

    void SetRows(QVector<TTableRow> const& rows);
    QVector<TTableRow> const& Rows() const { return m_Rows; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect RowRect(int row) const;
    void PaintRow(QPainter* painter, int row) const;

    int const m_RowHeight;
    int const m_TextSize;
    int const m_NameShare;
    QVector<TTableRow> m_Rows;
};
