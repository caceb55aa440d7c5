#include "TestCase.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>

std::map<QByteArray, TMakeTest>& TestClasses()
{
    static std::map<QByteArray, TMakeTest> classes;
    return classes;
}

bool RegisterTestClass(char const* name, TMakeTest make)
{
    return TestClasses().emplace(name, make).second;
}

namespace
{
// A warning that no test expected is a failure: QtTest leaves the expected ones out of its log.
int CountUnexpectedWarnings(QString const& logPath)
{
    QFile log(logPath);
    if (!log.open(QIODevice::ReadOnly))
        return 1;
    int count = 0;
    QList<QByteArray> const lines = log.readAll().split('\n');
    for (QByteArray const& line : lines)
    {
        if (line.startsWith("QWARN") || line.startsWith("QCRITICAL"))
        {
            std::fprintf(stderr, "unexpected warning: %s\n", line.constData());
            ++count;
        }
    }
    return count;
}

int RunClass(QByteArray const& name, QStringList arguments)
{
    auto const found = TestClasses().find(name);
    if (found == TestClasses().end())
    {
        std::fprintf(stderr, "no such test class: %s\n", name.constData());
        return 2;
    }
    QTemporaryDir folder;
    QString const logPath = folder.filePath(QStringLiteral("log.txt"));
    arguments << QStringLiteral("-o") << logPath + QStringLiteral(",txt") << QStringLiteral("-o")
              << QStringLiteral("-,txt");
    std::unique_ptr<QObject> const test(found->second());
    int const failures = QTest::qExec(test.get(), arguments);
    return failures + CountUnexpectedWarnings(logPath);
}
} // namespace

/// Usage: test-room [Class [QtTest options]]; without a class all of the room run.
int main(int argc, char** argv)
{
    QApplication::setAttribute(Qt::AA_Use96Dpi);
    // What a test hears it records; the device of the machine stays out of it.
    qputenv("COMMONUI_SOUND", "none");
    QApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() > 1)
    {
        QByteArray const name = arguments.takeAt(1).toUtf8();
        return qMin(RunClass(name, arguments), 127);
    }
    int failures = 0;
    for (auto const& entry : TestClasses())
        failures += RunClass(entry.first, arguments);
    return qMin(failures, 127);
}
