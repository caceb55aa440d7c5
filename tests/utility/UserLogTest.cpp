#include "UserLog.h"
#include "TestCase.h"
#include "TestSupport.h"

#include <QThread>

#include <sys/stat.h>

class UserLogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void withoutALogEntriesAreWarnings();
    void setLogIsUsedUntilAnotherComes();
    void entriesAreLinesWithTheTime();
    void entryStaysOneLine_data();
    void entryStaysOneLine();
    void longEntryIsCut();
    void longEntryIsNotCutWithinACharacter();
    void missingFolderIsMade();
    void fullFileBecomesTheOldGeneration();
    void boundIsExact();
    void oneOldGenerationIsKept();
    void oldGenerationThatCannotBeReplacedIsGivenUp();
    void unfinishedLineIsClosed();
    void fileThatIsTakenAwayIsMadeAnew();
    void placeThatTakesNoFileGivesOneWarning_data();
    void placeThatTakesNoFileGivesOneWarning();
    void warningComesAgainAfterASuccess();
    void threadsShareTheFileLineByLine();

private:
    QByteArrayList Lines(QString const& path) const;

    std::unique_ptr<QTemporaryDir> m_Folder;
    QString m_Path;
};

namespace
{
QByteArray Content(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
} // namespace

void UserLogTest::init()
{
    m_Folder = std::make_unique<QTemporaryDir>();
    m_Path = m_Folder->filePath("log.txt");
}

void UserLogTest::cleanup()
{
    SetUserLog(nullptr);
    TLocalTime::SetCurrentDateTime({});
    m_Folder.reset();
}

// Without the time and the last line end.
QByteArrayList UserLogTest::Lines(QString const& path) const
{
    constexpr int TIME_LENGTH = 20;
    QByteArrayList lines = Content(path).split('\n');
    lines.removeLast();
    for (QByteArray& line : lines)
        line.remove(0, TIME_LENGTH);
    return lines;
}

void UserLogTest::withoutALogEntriesAreWarnings()
{
    QVERIFY(GetUserLog() != nullptr);
    QTest::ignoreMessage(QtWarningMsg, "it \"failed\"\\nbadly");
    GetUserLog()->AddEntry("it \"failed\"\nbadly");
}

void UserLogTest::setLogIsUsedUntilAnotherComes()
{
    UserLogAccessorPtr const fallback = GetUserLog();
    UserLogAccessorPtr const log = MakeFileUserLog(m_Path);
    QCOMPARE(SetUserLog(log), fallback);
    QCOMPARE(GetUserLog(), log);
    GetUserLog()->AddEntry("entry");
    QCOMPARE(Lines(m_Path), QByteArrayList{"entry"});
    QCOMPARE(SetUserLog(nullptr), log);
    QCOMPARE(GetUserLog(), fallback);
}

void UserLogTest::entriesAreLinesWithTheTime()
{
    TManualClock clock;
    TLocalTime::SetCurrentDateTime(QDateTime(QDate(2024, 2, 29), QTime(7, 8, 9)));
    UserLogAccessorPtr const log = MakeFileUserLog(m_Path);
    log->AddEntry("first");
    clock.Advance(61000);
    log->AddEntry("");
    QCOMPARE(Content(m_Path), QByteArray("2024-02-29T07:08:09 first\n2024-02-29T07:09:10 \n"));
}

void UserLogTest::entryStaysOneLine_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("letters") << QString::fromUtf8("\u00e4\u6f22\U0001f69c")
                             << QByteArray("\u00e4\u6f22\U0001f69c");
    QTest::newRow("line ends") << "a\nb\r\nc\n" << QByteArray("a\\nb\\r\\nc\\n");
    QTest::newRow("tab") << "a\tb" << QByteArray("a\\tb");
    QTest::newRow("backslash") << "a\\nb" << QByteArray("a\\\\nb");
    QTest::newRow("controls") << QString(QChar(0)) + QChar(0x1b) + QChar(0x7f) + QChar(0x85)
                              << QByteArray("\\u0000\\u001b\\u007f\\u0085");
    QTest::newRow("separators") << QString(QChar(0x2028)) + QChar(0x2029) << QByteArray("\\u2028\\u2029");
    QTest::newRow("format signs") << "%1 %s %n" << QByteArray("%1 %s %n");
}

void UserLogTest::entryStaysOneLine()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, line);
    UserLogAccessorPtr const log = MakeFileUserLog(m_Path);
    log->AddEntry(text);
    log->AddEntry("next");
    QCOMPARE(Lines(m_Path), (QByteArrayList{line, "next"}));
}

void UserLogTest::longEntryIsCut()
{
    UserLogAccessorPtr const log = MakeFileUserLog(m_Path);
    log->AddEntry(QString(1000, 'x'));
    log->AddEntry(QString(1001, 'x'));
    log->AddEntry(QString(50000000, 'x'));
    QByteArray const whole(1000, 'x');
    QByteArray const cut = whole + "\u2026";
    QCOMPARE(Lines(m_Path), (QByteArrayList{whole, cut, cut}));
}

void UserLogTest::longEntryIsNotCutWithinACharacter()
{
    QString const tractor = QString::fromUtf8("\U0001f69c");
    UserLogAccessorPtr const log = MakeFileUserLog(m_Path);
    log->AddEntry(QString(998, 'x') + tractor + "y");
    log->AddEntry(QString(999, 'x') + tractor + "y");
    QByteArray const dots = "\u2026";
    QCOMPARE(Lines(m_Path),
             (QByteArrayList{QByteArray(998, 'x') + tractor.toUtf8() + dots, QByteArray(999, 'x') + dots}));
}

void UserLogTest::missingFolderIsMade()
{
    QString const path = m_Folder->filePath("some/folder/log.txt");
    MakeFileUserLog(path)->AddEntry("entry");
    QCOMPARE(Lines(path), QByteArrayList{"entry"});
}

void UserLogTest::fullFileBecomesTheOldGeneration()
{
    UserLogAccessorPtr const log = MakeFileUserLog(m_Path, 80);
    for (int i = 0; i < 4; ++i)
        log->AddEntry("entry " + QString::number(i));
    QCOMPARE(Lines(m_Path + ".1"), (QByteArrayList{"entry 0", "entry 1"}));
    QCOMPARE(Lines(m_Path), (QByteArrayList{"entry 2", "entry 3"}));
}

void UserLogTest::boundIsExact()
{
    constexpr int LINE_BYTES = 20 + 9 + 1;
    UserLogAccessorPtr const log = MakeFileUserLog(m_Path, 2 * LINE_BYTES);
    log->AddEntry("123456789");
    log->AddEntry("123456789");
    QVERIFY(!QFile::exists(m_Path + ".1"));
    log->AddEntry("");
    QCOMPARE(Lines(m_Path + ".1").size(), 2);
    QCOMPARE(Lines(m_Path), QByteArrayList{""});
}

void UserLogTest::oneOldGenerationIsKept()
{
    UserLogAccessorPtr const log = MakeFileUserLog(m_Path, 0);
    for (char const* const entry : {"one", "two", "three"})
        log->AddEntry(entry);
    QCOMPARE(Lines(m_Path), QByteArrayList{"three"});
    QCOMPARE(Lines(m_Path + ".1"), QByteArrayList{"two"});
    QCOMPARE(QDir(m_Folder->path()).entryList(QDir::Files).size(), 2);
}

void UserLogTest::oldGenerationThatCannotBeReplacedIsGivenUp()
{
    QVERIFY(QDir().mkpath(m_Path + ".1/folder"));
    UserLogAccessorPtr const log = MakeFileUserLog(m_Path, 50);
    for (int i = 0; i < 100; ++i)
        log->AddEntry("entry");
    QVERIFY(QFileInfo(m_Path).size() <= 50);
    QCOMPARE(Lines(m_Path).constLast(), QByteArray("entry"));
}

void UserLogTest::unfinishedLineIsClosed()
{
    QFile file(m_Path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("2024-02-29T07:08:09 cut o");
    file.close();
    MakeFileUserLog(m_Path)->AddEntry("entry");
    QCOMPARE(Lines(m_Path), (QByteArrayList{"cut o", "entry"}));
}

void UserLogTest::fileThatIsTakenAwayIsMadeAnew()
{
    UserLogAccessorPtr const log = MakeFileUserLog(m_Path);
    log->AddEntry("lost");
    QVERIFY(QFile::remove(m_Path));
    log->AddEntry("kept");
    QCOMPARE(Lines(m_Path), QByteArrayList{"kept"});
}

void UserLogTest::placeThatTakesNoFileGivesOneWarning_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("no name") << QString();
    QTest::newRow("folder") << QDir::tempPath();
    QTest::newRow("below a file") << "/proc/version/log.txt";
    QTest::newRow("where no file can be made") << "/proc/log.txt";
    QTest::newRow("full device") << "/dev/full";
}

void UserLogTest::placeThatTakesNoFileGivesOneWarning()
{
    QFETCH(QString, path);
    QTest::ignoreMessage(QtWarningMsg, qPrintable("The operator's log cannot be written: " + path));
    UserLogAccessorPtr const log = MakeFileUserLog(path);
    log->AddEntry("lost");
    log->AddEntry("lost too");
}

void UserLogTest::warningComesAgainAfterASuccess()
{
    QByteArray const warning = "The operator's log cannot be written: " + m_Path.toLocal8Bit();
    UserLogAccessorPtr const log = MakeFileUserLog(m_Path);
    for (int i = 0; i < 2; ++i)
    {
        QVERIFY(QDir().mkpath(m_Path));
        QTest::ignoreMessage(QtWarningMsg, warning.constData());
        log->AddEntry("lost");
        QVERIFY(QDir().rmdir(m_Path));
        log->AddEntry("kept");
        QVERIFY(QFile::remove(m_Path));
    }
    QCOMPARE(mkfifo(QFile::encodeName(m_Path).constData(), 0600), 0);
    QTest::ignoreMessage(QtWarningMsg, warning.constData());
    log->AddEntry("not into a pipe");
}

void UserLogTest::threadsShareTheFileLineByLine()
{
    constexpr int THREADS = 4;
    constexpr int ENTRIES = 200;
    SetUserLog(MakeFileUserLog(m_Path));
    std::vector<std::unique_ptr<QThread>> threads;
    for (int i = 0; i < THREADS; ++i)
    {
        threads.emplace_back(QThread::create(
            [i]
            {
                for (int entry = 0; entry < ENTRIES; ++entry)
                    GetUserLog()->AddEntry(QString(100, QChar('a' + i)));
            }));
        threads.back()->start();
    }
    for (auto const& thread : threads)
        QVERIFY(thread->wait());
    QByteArrayList const lines = Lines(m_Path);
    for (int i = 0; i < THREADS; ++i)
        QCOMPARE(lines.count(QByteArray(100, char('a' + i))), ENTRIES);
    QCOMPARE(lines.size(), THREADS * ENTRIES);
}

COMMONUI_TEST(UserLogTest)
#include "UserLogTest.moc"
