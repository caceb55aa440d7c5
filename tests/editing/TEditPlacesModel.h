#pragma once

#include "Metrics.h"

#include <QPoint>
#include <QRect>
#include <QtTest>

#include <algorithm>

// A model of its own of where an edit widget puts its parts, in plain first and last pixels.

constexpr int StepWidth = 70;
constexpr int StepHeight = 66;
constexpr int SmallestWidth = 250;

/// Where a list is.
struct TListPlace
{
    QRect box;
    int rows;
    bool isValueShown;
};

inline bool operator==(TListPlace const& left, TListPlace const& right)
{
    return left.box == right.box && left.rows == right.rows && left.isValueShown == right.isValueShown;
}

inline char* toString(TListPlace const& place)
{
    QRect const box = place.box;
    return QTest::toString(QStringLiteral("%1,%2 %3x%4 rows %5 value %6")
                               .arg(box.x())
                               .arg(box.y())
                               .arg(box.width())
                               .arg(box.height())
                               .arg(place.rows)
                               .arg(place.isValueShown));
}

/// The list beside a value, for rows no wider than the smallest box and a list without a title.
class TListModel
{
public:
    TListModel(QRect const& usable, QRect const& value, int rows, QSize const& wish, int overlayHeight)
        : m_Usable(usable)
        , m_Value(value)
        , m_Rows(rows)
        , m_Width(std::max(SmallestWidth, wish.width()))
        , m_Limit(wish.height() < 1 ? overlayHeight : wish.height())
    {
    }

    TListPlace Place()
    {
        if (!Right() && !Left())
            Below();
        m_X = std::max(m_X, m_Usable.left());
        m_Y = std::max(m_Y, m_Usable.top());
        int const over = m_Y + Height(m_Rows) - 1 - m_Bottom;
        if (over > 0)
            m_Y = std::max(m_Y - over, m_Top);
        Shrink();
        QRect const box(m_X, m_Y, m_Width, Height(m_Rows));
        return {box, m_Rows, !(m_Overlaps && box.intersects(m_Value))};
    }

private:
    static int Height(int rows) { return 120 + 50 * rows; }

    bool Right()
    {
        m_X = m_Value.right() + 1;
        m_Y = m_Value.top() - 20;
        m_Top = m_Usable.top();
        m_Bottom = m_Usable.bottom();
        return m_X + m_Width < m_Usable.right();
    }
    bool Left()
    {
        if (m_Value.left() - m_Usable.left() <= m_Width)
            return false;
        m_X = m_Value.left() - m_Width;
        return true;
    }
    void Below()
    {
        m_X = m_Value.left() < m_Usable.left() ? m_Usable.left() : m_Value.left();
        if (m_X + m_Width - 1 > m_Usable.right())
            m_X = (m_Usable.width() - m_Width) / 2;
        if (m_Width > m_Usable.width())
        {
            m_Width = m_Usable.width();
            m_X = m_Usable.left();
        }
        m_Y = m_Top = m_Value.bottom() + 1;
        if (FitsBelow(m_Rows))
            return;
        if (FitsAbove(m_Rows))
            Above();
        else if (m_Rows > 2 && FitsBelow(2))
            return;
        else if (m_Rows > 2 && FitsAbove(2))
            Above();
        else
            Overlap();
    }
    bool FitsBelow(int rows) const { return m_Value.bottom() + Height(rows) <= m_Usable.bottom(); }
    bool FitsAbove(int rows) const { return m_Usable.top() + Height(rows) - 1 <= m_Value.top() - 1; }
    void Above()
    {
        m_Y = m_Top = m_Usable.top();
        m_Bottom = m_Value.top() - 1;
    }
    void Overlap()
    {
        m_Top = m_Usable.top();
        m_Y = std::max(m_Usable.bottom() - Height(m_Rows) + 1, m_Top);
        m_Overlaps = true;
    }
    void Shrink()
    {
        int const excess = std::max(Height(m_Rows) - m_Limit, m_Y + Height(m_Rows) - 1 - m_Bottom);
        if (m_Rows < 2 || excess <= 0)
            return;
        m_Rows -= qRound(excess / 50.0 + 0.5);
        if (m_Rows < 2)
            m_Rows = 0;
    }

    QRect const m_Usable;
    QRect const m_Value;
    int m_Rows;
    int m_Width;
    int const m_Limit;
    int m_X = 0;
    int m_Y = 0;
    int m_Top = 0;
    int m_Bottom = 0;
    bool m_Overlaps = false;
};

/// Where plus, minus and the pad are; a pad that is inline stands in the middle without them.
struct TPadPlace
{
    QPoint minus;
    QPoint plus;
    QPoint pad;
    bool isInline;
};

/// A compact pad of the size \a pad with plus and minus.
class TPadModel
{
public:
    TPadModel(QRect const& usable, QRect const& value, QSize const& pad)
        : m_Usable(usable)
        , m_Value(value)
        , m_Pad(pad)
    {
    }

    TPadPlace Place()
    {
        PlaceSteps();
        PlacePad();
        QRect const all = QRect(m_Minus, QSize(2 * StepWidth, StepHeight)).united(QRect(m_Corner, m_Pad));
        QRect const inner(all.topLeft() + QPoint(19, 19), all.bottomRight() - QPoint(19, 19));
        bool const fits = inner.left() >= m_Usable.left() && inner.right() <= m_Usable.right() &&
                          inner.top() >= m_Usable.top() && inner.bottom() <= m_Usable.bottom();
        return {m_Minus, m_Minus + QPoint(StepWidth, 0), m_Corner, !fits};
    }

private:
    void PlaceSteps()
    {
        int x = m_Value.right() + 1;
        if (x + 2 * StepWidth - 1 > m_Usable.right())
            x = m_Value.left() - 2 * StepWidth;
        if (x < m_Usable.left())
            x = m_Usable.right() + 1 - 2 * StepWidth;
        int y = m_Value.top() + (m_Value.height() - StepHeight) / 2;
        if (y + StepHeight - 1 > m_Usable.bottom())
            y = m_Usable.bottom() - StepHeight + 1;
        m_Minus = QPoint(x, y);
    }
    void PlacePad()
    {
        int const h = m_Pad.height() - 9;
        int const limitX = m_Usable.width();
        int const limitY = m_Usable.height();
        int const plusRight = m_Minus.x() + 2 * StepWidth - 1;
        // The last pixel of the pad lies 6 right of the last one of plus.
        int x = plusRight + 6 - (m_Pad.width() - 1);
        int y = m_Value.bottom() + 26;
        if (x + m_Pad.width() > limitX)
            x = limitX - m_Pad.width() - 10;
        if (y + h > limitY)
            y = m_Value.top() - h - 25;
        if (y < 0)
        {
            if (m_Value.center().x() > m_Usable.center().x())
            {
                x = m_Value.left() - m_Pad.width() - 10 - 2 * StepWidth - 2;
                m_Minus.setX(m_Value.left() - 2 * StepWidth);
            }
            else
            {
                x = m_Value.right() + 11 + 2 * StepWidth;
            }
            y = (limitY - h) / 2;
        }
        m_Corner = QPoint(x, y);
    }

    QRect const m_Usable;
    QRect const m_Value;
    QSize const m_Pad;
    QPoint m_Minus;
    QPoint m_Corner;
};
