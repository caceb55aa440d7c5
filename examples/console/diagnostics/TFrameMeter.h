#pragma once

#include <QObject>
#include <QVector>

/// Measures how much of the processor each frame of one window takes to paint, by delivering its update
/// requests itself.
class TFrameMeter : public QObject
{
    Q_OBJECT

public:
    /// Frames that are remembered.
    static constexpr int MaxFrames = 120;

    explicit TFrameMeter(QWidget* window);

    /// In ms, oldest first.
    QVector<double> const& Frames() const { return m_Frames; }
    double Mean() const;
    double Longest() const;
    /// All frames since the start.
    int Count() const { return m_Count; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QVector<double> m_Frames;
    int m_Count = 0;
};
