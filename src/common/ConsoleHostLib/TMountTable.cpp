#include "TMountTable.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QSocketNotifier>

#include <optional>

namespace
{
// Fields of a line: number, number of the parent, device, root of the mount, mount point, and more.
constexpr int DeviceField = 2;
constexpr int RootField = 3;
constexpr int MountPointField = 4;
constexpr int LeastFields = 6;

constexpr int EscapeDigits = 3;
constexpr int OctalBase = 8;
constexpr int LargestByte = 0xff;

// The byte that the three octal digits behind a backslash stand for; nothing for other text and for a NUL,
// which no path holds.
std::optional<char> EscapedByte(QByteArray const& digits)
{
    bool isNumber = digits.size() == EscapeDigits;
    int value = 0;
    for (char const digit : digits)
    {
        isNumber = isNumber && digit >= '0' && digit < '0' + OctalBase;
        value = value * OctalBase + (digit - '0');
    }
    if (!isNumber || value == 0 || value > LargestByte)
        return std::nullopt;
    return static_cast<char>(value);
}

// The kernel writes blanks, line ends and backslashes as octal numbers. Empty for what it never writes.
QByteArray Unescaped(QByteArray const& field)
{
    if (field.contains('\0'))
        return QByteArray();
    QByteArray text;
    for (int i = 0; i < field.size(); ++i)
    {
        if (field[i] != '\\')
        {
            text.append(field[i]);
            continue;
        }
        std::optional<char> const byte = EscapedByte(field.mid(i + 1, EscapeDigits));
        if (!byte)
            return QByteArray();
        text.append(*byte);
        i += EscapeDigits;
    }
    return text;
}

bool IsDeviceNumber(QString const& text)
{
    static QRegularExpression const number(QStringLiteral("\\A[0-9]{1,10}:[0-9]{1,10}\\z"));
    return number.match(text).hasMatch();
}
} // namespace

TMountTable::TMountTable(QString const& table, QString const& deviceTree, QObject* parent)
    : QObject(parent)
    , m_DeviceTree(deviceTree)
    , m_Table(table)
{
    if (!m_Table.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return;
    // The kernel raises POLLPRI when a mount comes or goes.
    m_Notifier = std::make_unique<QSocketNotifier>(m_Table.handle(), QSocketNotifier::Exception);
    connect(m_Notifier.get(), &QSocketNotifier::activated, this, &TMountTable::OnTableChanged);
    Read();
}

TMountTable::~TMountTable() = default;

void TMountTable::OnTableChanged()
{
    Read();
    Q_EMIT Changed();
}

void TMountTable::Read()
{
    m_Sticks.clear();
    m_Table.seek(0);
    QList<QByteArray> const lines = m_Table.readAll().split('\n');
    for (QByteArray const& line : lines)
    {
        QString const stick = StickIn(line);
        if (!stick.isEmpty())
            m_Sticks.append(stick);
    }
}

// Empty for what is no stick.
QString TMountTable::StickIn(QByteArray const& line) const
{
    QList<QByteArray> const fields = line.split(' ');
    // A part of a drive that is mounted a second time elsewhere is not the drive.
    if (fields.size() < LeastFields || fields[RootField] != "/" || !IsOnUsb(fields[DeviceField]))
        return QString();
    QByteArray const mountPoint = Unescaped(fields[MountPointField]);
    // Nothing mounted at the root is ever pulled.
    return mountPoint.size() > 1 && mountPoint.startsWith('/') ? QFile::decodeName(mountPoint) : QString();
}

bool TMountTable::IsOnUsb(QByteArray const& device) const
{
    QString const number = QString::fromLatin1(device);
    if (!IsDeviceNumber(number))
        return false;
    static QRegularExpression const bus(QStringLiteral("/usb[0-9]+/"));
    QString const path = QFileInfo(m_DeviceTree + QStringLiteral("/dev/block/") + number).canonicalFilePath();
    return bus.match(path).hasMatch();
}
