#include "TDiagnosticsWindow.h"

#include "ConfigManager.h"
#include "MainScreen.h"
#include "PixmapManager.h"
#include "TConsoleShell.h"
#include "TFrameGraph.h"
#include "TJob.h"
#include "TLogTail.h"
#include "TQuantity.h"
#include "TScreen.h"
#include "TSystemSettings.h"
#include "TTablePanel.h"
#include "TUnits.h"
#include "TUnitSettings.h"

#include <QFile>

#include <unistd.h>

namespace
{
constexpr int RefreshInterval = 1000;
constexpr int Margin = 16;
constexpr int GraphHeight = 180;
constexpr int RowHeight = 34;
constexpr int TextSize = 17;
constexpr int RowCount = 8;
constexpr int SettingNameShare = 64;
constexpr int TableHeight = RowCount * RowHeight;
constexpr double BytesPerMegabyte = 1024.0 * 1024.0;
// Longer values, the layout above all, are told by their length.
constexpr int LongestValue = 8;

// The memory that the process really holds, 0 where the system does not tell.
qint64 ResidentBytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

QString Megabytes(qint64 bytes)
{
    return TUnits::GetValueString(static_cast<double>(bytes) / BytesPerMegabyte, QStringLiteral("MB"), 1,
                                  nullptr);
}

QString Milliseconds(double value)
{
    return TUnits::GetValueString(value, UNIT_MILLISECOND, 1, nullptr, 1.0);
}

QVector<TTableRow> SettingRows()
{
    QVector<TTableRow> rows;
    for (TConfigEntry const& entry : ConfigManager::KnownEntries())
    {
        QString text = ConfigManager::Instance()->Read(entry.id).toString();
        if (text.size() > LongestValue)
            text = TDiagnosticsWindow::tr("%1 chars").arg(text.size());
        if (text.isEmpty())
            text = QStringLiteral("–");
        rows.append({QStringLiteral("%1 %2").arg(entry.id).arg(QLatin1String(entry.name)), text, {}});
    }
    return rows;
}
} // namespace

TDiagnosticsWindow::TDiagnosticsWindow(QWidget* canvas, QWidget* screen, TJob const& job)
    : TFullWindow(canvas)
    , m_Job(job)
    , m_Meter(screen)
{
    UseTimer(RefreshInterval);
}

void TDiagnosticsWindow::Setup()
{
    TFullWindow::Setup();
    QWidget* const content = GetWindowContent();
    m_Graph = new TFrameGraph(content, m_Meter);
    m_Numbers = new TTablePanel(content, RowHeight, TextSize);
    m_Settings = new TTablePanel(content, RowHeight, TextSize, SettingNameShare);
    m_Log = new TLogTail(content,
                         TSystemSettings::GetInternalDrivePath() + QLatin1String(TConsoleShell::LogFile));
    connect(TUnitSettings::Instance(), &TUnitSettings::Changed, this, &TDiagnosticsWindow::Refresh);
    connect(&m_Job, &TJob::Changed, this, &TDiagnosticsWindow::Refresh);
    SetTitle(tr("Diagnostics"));
    Refresh();
}

void TDiagnosticsWindow::Refresh()
{
    KVN::PixmapManager const* const pixmaps = tscreenPixmapManager();
    m_Graph->update();
    m_Numbers->SetRows(
        {{tr("Frames painted"), QString::number(m_Meter.Count()), {}},
         {tr("Mean frame"), Milliseconds(m_Meter.Mean()), {}},
         {tr("Longest frame"), Milliseconds(m_Meter.Longest()), {}},
         {tr("Memory"), Megabytes(ResidentBytes()), {}},
         {tr("Resized art"), Megabytes(pixmaps ? pixmaps->CachedBytes() : 0), {}},
         {tr("Operator"), m_Job.Operator().isEmpty() ? QStringLiteral("–") : m_Job.Operator(), {}},
         {tr("Begun"),
          Quantities::Date.Text(m_Job.StartDay()) + QLatin1Char(' ') +
              Quantities::TimeOfDay.Text(m_Job.StartTime()),
          {}},
         {tr("Server"), m_Job.Server(), {}}});
    m_Settings->SetRows(SettingRows());
    m_Log->Sync();
}

void TDiagnosticsWindow::resizeEvent(QResizeEvent* event)
{
    TFullWindow::resizeEvent(event);
    Arrange();
}

void TDiagnosticsWindow::Arrange()
{
    if (!m_Graph)
        return;
    QRect const room = GetWindowContent()->rect().adjusted(Margin, Margin, -Margin, -Margin);
    int const half = (room.width() - Margin) / 2;
    m_Graph->setGeometry(room.left(), room.top(), room.width(), GraphHeight);
    int const tableTop = room.top() + GraphHeight + Margin;
    m_Numbers->setGeometry(room.left(), tableTop, half, TableHeight);
    m_Settings->setGeometry(room.right() + 1 - half, tableTop, half, TableHeight);
    int const logTop = tableTop + TableHeight + Margin;
    m_Log->setGeometry(room.left(), logTop, room.width(), room.bottom() + 1 - logTop);
}
