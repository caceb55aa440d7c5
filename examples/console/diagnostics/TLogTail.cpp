#include "TLogTail.h"

#include "ConsoleText.h"
#include "Palette.h"

#include <QFile>
#include <QPainter>

namespace
{
constexpr int Margin = 8;
constexpr int CaptionHeight = 26;
constexpr int LineHeight = 22;
constexpr int TextSize = 14;
constexpr int CaptionSize = 16;
// Enough for all lines that fit on any screen.
constexpr qint64 TailBytes = 8192;
} // namespace

TLogTail::TLogTail(QWidget* parent, QString const& path)
    : QWidget(parent)
    , m_Path(path)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void TLogTail::Sync()
{
    QFile log(m_Path);
    if (!log.open(QIODevice::ReadOnly))
        return;
    if (log.size() == m_Size)
        return;
    m_Size = log.size();
    bool const isCut = m_Size > TailBytes;
    if (isCut)
        log.seek(m_Size - TailBytes);
    m_Lines = QString::fromUtf8(log.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    if (isCut && !m_Lines.isEmpty())
        m_Lines.removeFirst();
    update();
}

void TLogTail::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    ConsoleText::DrawSurface(&painter, rect());
    int const width = this->width() - 2 * Margin;
    ConsoleText::Draw(&painter, QRect(Margin, 2, width, CaptionHeight), Qt::AlignLeft | Qt::AlignVCenter,
                      tr("Log"), CaptionSize, ConsoleText::CaptionColor());
    int const count = qMin(m_Lines.size(), (height() - CaptionHeight - Margin) / LineHeight);
    for (int i = 0; i < count; ++i)
    {
        QRect const line(Margin, CaptionHeight + i * LineHeight, width, LineHeight);
        ConsoleText::Draw(&painter, line, Qt::AlignLeft | Qt::AlignVCenter,
                          m_Lines[m_Lines.size() - count + i], TextSize, regularTextColor);
    }
}
