#include "TEditContainer.h"
#include "RunInChild.h"
#include "TestCase.h"

#include <limits>

class TEditContainerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readingPastTheEndGivesTheDefaultAndDoesNotGrow();
    void settingPastTheEndFillsTheGapWithDefaults();
    void elementInsideIsReplaced();
    void defaultTextIsTheSharedEmptyOne();
    void switchesHaveTheDefaultOfTheirContainer();
    void elementMayBeSetFromTheContainerItself();
    void copiesShareNothing();
    void negativeIndexEndsTheProgram_data();
    void negativeIndexEndsTheProgram();
};

namespace
{
// Counts what the container asks its default for.
class TCountingContainer : public EditContainer<int>
{
public:
    mutable int asked = 0;

private:
    int Default() const override
    {
        ++asked;
        return 7;
    }
};
} // namespace

void TEditContainerTest::readingPastTheEndGivesTheDefaultAndDoesNotGrow()
{
    TCountingContainer container;
    QCOMPARE(container.at(5), 7);
    QCOMPARE(container.at(std::numeric_limits<int>::max()), 7);
    container.asked = 0;
    container.setAt(2, 1);
    QCOMPARE(container.asked, 2);
    QCOMPARE(container.at(2), 1);
    QCOMPARE(container.asked, 2);
    QCOMPARE(container.at(3), 7);
    QCOMPARE(container.asked, 3);
}

void TEditContainerTest::settingPastTheEndFillsTheGapWithDefaults()
{
    TEditContainerQString texts;
    texts.setAt(3, QStringLiteral("fourth"));
    for (int i = 0; i < 3; ++i)
        QCOMPARE(texts.at(i), QString());
    QCOMPARE(texts.at(3), QString("fourth"));
    QCOMPARE(texts.at(4), QString());
    TEditContainerBool switches(true);
    switches.setAt(2, false);
    QVERIFY(switches.at(0));
    QVERIFY(switches.at(1));
    QVERIFY(!switches.at(2));
    QVERIFY(switches.at(3));
}

void TEditContainerTest::elementInsideIsReplaced()
{
    TEditContainerQString texts;
    texts.setAt(0, QStringLiteral("one"));
    texts.setAt(1, QStringLiteral("two"));
    texts.setAt(0, QStringLiteral("first"));
    QCOMPARE(texts.at(0), QString("first"));
    QCOMPARE(texts.at(1), QString("two"));
    QCOMPARE(texts.at(2), QString());
}

void TEditContainerTest::defaultTextIsTheSharedEmptyOne()
{
    QVERIFY(TEditContainerQString::m_default.isEmpty());
    TEditContainerQString const texts;
    QCOMPARE(texts.at(0).constData(), TEditContainerQString::m_default.constData());
}

void TEditContainerTest::switchesHaveTheDefaultOfTheirContainer()
{
    QVERIFY(TEditContainerBool(true).at(9));
    QVERIFY(!TEditContainerBool(false).at(9));
    TEditContainerBool switches(true);
    switches = TEditContainerBool(false);
    QVERIFY(!switches.at(0));
}

void TEditContainerTest::elementMayBeSetFromTheContainerItself()
{
    struct TOpen : EditContainer<QString>
    {
        QString Default() const override { return QStringLiteral("default"); }
    };
    TOpen texts;
    texts.setAt(0, QStringLiteral("first"));
    texts.setAt(100, texts.at(0));
    QCOMPARE(texts.at(100), QString("first"));
    QCOMPARE(texts.at(99), QString("default"));
}

void TEditContainerTest::copiesShareNothing()
{
    TEditContainerQString texts;
    texts.setAt(1, QStringLiteral("two"));
    TEditContainerQString copy = texts;
    copy.setAt(1, QStringLiteral("other"));
    QCOMPARE(texts.at(1), QString("two"));
    QCOMPARE(copy.at(1), QString("other"));
}

void TEditContainerTest::negativeIndexEndsTheProgram_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("just below") << -1;
    QTest::newRow("smallest") << std::numeric_limits<int>::min();
}

void TEditContainerTest::negativeIndexEndsTheProgram()
{
    QFETCH(int, index);
    TEditContainerQString texts;
    TEnd const read = RunInChild([&texts, index] { texts.at(index); });
    QCOMPARE(read.signal, SIGABRT);
    QCOMPARE(read.message.trimmed(),
             QByteArray("ASSERT: \"index >= 0\" in file src/common/CommonUILib/TEditContainer, line 29"));
    TEnd const written = RunInChild([&texts, index] { texts.setAt(index, QString()); });
    QCOMPARE(written.signal, SIGABRT);
    QCOMPARE(written.message.trimmed(),
             QByteArray("ASSERT: \"index >= 0\" in file src/common/CommonUILib/TEditContainer, line 54"));
    TEnd const unharmed = RunInChild([&texts] { texts.at(0); });
    QCOMPARE(unharmed.signal, 0);
    QCOMPARE(unharmed.message, QByteArray());
}

COMMONUI_TEST(TEditContainerTest)
#include "TEditContainerTest.moc"
