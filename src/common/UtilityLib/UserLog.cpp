#include "UserLog.h"

#include "TLocalTime.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMutex>
#include <QtDebug>

#include <cstdio>

namespace
{
// Keeps one write small, whatever a damaged file or a far end puts into a message.
constexpr int MAX_ENTRY_CHARACTERS = 1000;

bool BreaksLines(QChar character)
{
    switch (character.category())
    {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

QString Escaped(QChar character)
{
    switch (character.unicode())
    {
    case '\n':
        return QStringLiteral("\\n");
    case '\r':
        return QStringLiteral("\\r");
    case '\t':
        return QStringLiteral("\\t");
    case '\\':
        return QStringLiteral("\\\\");
    default:
        return QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
    }
}

// A character that takes two units stays whole.
QString Cut(QString const& text)
{
    bool const splitsPair =
        text.size() > MAX_ENTRY_CHARACTERS && text.at(MAX_ENTRY_CHARACTERS - 1).isHighSurrogate();
    return text.left(splitsPair ? MAX_ENTRY_CHARACTERS - 1 : MAX_ENTRY_CHARACTERS);
}

QString AsOneLine(QString const& text)
{
    QString const kept = Cut(text);
    QString line;
    line.reserve(kept.size() + 1);
    for (QChar const character : kept)
    {
        if (BreaksLines(character) || character == QLatin1Char('\\'))
            line += Escaped(character);
        else
            line += character;
    }
    if (text.size() > MAX_ENTRY_CHARACTERS)
        line += QChar(0x2026);
    return line;
}

class TWarningUserLog : public IUserLogAccessor
{
public:
    void AddEntry(QString const& text) override { qWarning().noquote() << AsOneLine(text); }
};

class TFileUserLog : public IUserLogAccessor
{
public:
    TFileUserLog(QString const& path, qint64 maxBytes)
        : m_Path(path)
        , m_MaxBytes(maxBytes)
    {
    }

    void AddEntry(QString const& text) override;

private:
    bool Append(QByteArray const& line) const;
    void MakeRoomFor(qint64 bytes) const;

    QString const m_Path;
    qint64 const m_MaxBytes;
    QMutex m_Mutex;
    bool m_HasFailed = false;
};

void TFileUserLog::AddEntry(QString const& text)
{
    QMutexLocker locker(&m_Mutex);
    QString const stamp = TLocalTime::currentDateTime().toLocalTime().toString(Qt::ISODate);
    QByteArray const line = (stamp + QLatin1Char(' ') + AsOneLine(text)).toUtf8() + '\n';
    bool const hadFailed = m_HasFailed;
    m_HasFailed = !Append(line);
    bool const isNewFailure = m_HasFailed && !hadFailed;
    // A message handler may itself write to the log.
    locker.unlock();
    if (isNewFailure)
        qWarning().noquote() << "The operator's log cannot be written:" << m_Path;
}

bool TFileUserLog::Append(QByteArray const& line) const
{
    QFileInfo const info(m_Path);
    // A pipe or a device in the file's place would block.
    if (m_Path.isEmpty() || (info.exists() && !info.isFile()))
        return false;
    if (!info.exists())
        QDir().mkpath(info.absolutePath());
    MakeRoomFor(line.size());
    QFile file(m_Path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::Unbuffered))
        return false;
    qint64 const end = file.size();
    // A line that a power cut left unfinished must not swallow this one.
    bool const isUnfinished = end > 0 && file.seek(end - 1) && file.read(1) != "\n";
    QByteArray const bytes = isUnfinished ? '\n' + line : line;
    if (file.seek(end) && file.write(bytes) == bytes.size())
        return true;
    file.resize(end);
    return false;
}

void TFileUserLog::MakeRoomFor(qint64 bytes) const
{
    qint64 const size = QFileInfo(m_Path).size();
    if (size == 0 || size + bytes <= m_MaxBytes)
        return;
    // rename() replaces the old generation in one step, which QFile::rename() refuses.
    QByteArray const path = QFile::encodeName(m_Path);
    if (std::rename(path.constData(), (path + ".1").constData()) != 0)
        QFile::resize(m_Path, 0);
}

struct TLogInUse
{
    QMutex mutex;
    UserLogAccessorPtr fallback = std::make_shared<TWarningUserLog>();
    UserLogAccessorPtr log = fallback;
};

// Never destroyed: threads may report while the program ends.
TLogInUse& LogInUse()
{
    static TLogInUse* const inUse = new TLogInUse;
    return *inUse;
}
} // namespace

IUserLogAccessor::~IUserLogAccessor() = default;

UserLogAccessorPtr GetUserLog()
{
    TLogInUse& inUse = LogInUse();
    QMutexLocker const locker(&inUse.mutex);
    return inUse.log;
}

UserLogAccessorPtr SetUserLog(UserLogAccessorPtr log)
{
    TLogInUse& inUse = LogInUse();
    QMutexLocker const locker(&inUse.mutex);
    inUse.log.swap(log);
    if (!inUse.log)
        inUse.log = inUse.fallback;
    return log;
}

UserLogAccessorPtr MakeFileUserLog(QString const& path, qint64 maxBytes)
{
    return std::make_shared<TFileUserLog>(path, maxBytes);
}
