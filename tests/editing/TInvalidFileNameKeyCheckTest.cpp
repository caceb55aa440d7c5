#include "TInvalidFileNameKeyCheck.h"
#include "TestCase.h"
#include "TKeyboardStage.h"

class TInvalidFileNameKeyCheckTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusesWhatADriveRefuses();
    void letsNamesThrough();
    void cleansAPastedName();
    void itsKeysAreDeadInBothStates();
};

void TInvalidFileNameKeyCheckTest::refusesWhatADriveRefuses()
{
    TInvalidFileNameKeyCheck const check;
    QString const refused = QStringLiteral("\\/:*?\"<>|\t\r\n\x7f") + QChar(0);
    for (QChar const character : refused)
    {
        QVERIFY(!check.IsCharacterAllowed(character));
        QVERIFY(!check.IsStringAllowed(QStringLiteral("a") + character));
    }
}

void TInvalidFileNameKeyCheckTest::letsNamesThrough()
{
    TInvalidFileNameKeyCheck const check;
    QVERIFY(check.IsStringAllowed(QStringLiteral("Große Wiese 3.txt")));
    QVERIFY(check.IsStringAllowed(QString()));
    QVERIFY(check.IsCharacterAllowed(QLatin1Char(' ')));
    QVERIFY(check.IsCharacterAllowed(QLatin1Char('.')));
}

void TInvalidFileNameKeyCheckTest::cleansAPastedName()
{
    TInvalidFileNameKeyCheck const check;
    QCOMPARE(check.Filtered(QStringLiteral("../a\nb:c*")), QStringLiteral("..abc"));
}

void TInvalidFileNameKeyCheckTest::itsKeysAreDeadInBothStates()
{
    TKeyboardStage stage;
    TInvalidFileNameKeyCheck const check;
    stage.keyboard->PushKeyChecker(&check);
    QVERIFY(stage.Type(QStringLiteral("=\\:/")));
    QCOMPARE(stage.typed, QStringLiteral("="));
    stage.finger.Touch(stage.Lock());
    for (char const dead : {'"', '*', '|', '<', '>', '?'})
        QVERIFY(!stage.Key(QLatin1Char(dead))->isEnabled());
    QVERIFY(stage.Key(QLatin1Char('!'))->isEnabled());
    stage.keyboard->PopKeyChecker();
    QVERIFY(stage.Key(QLatin1Char('?'))->isEnabled());
}

COMMONUI_TEST(TInvalidFileNameKeyCheckTest)

#include "TInvalidFileNameKeyCheckTest.moc"
