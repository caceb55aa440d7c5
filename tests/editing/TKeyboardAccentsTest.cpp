#include "TestCase.h"
#include "TKeyboardStage.h"
#include "TKeyboardTables.h"

namespace
{
QChar const Acute(0xB4);
QChar const Grave(0x60);
QChar const Caron(0x2C7);
constexpr int Portuguese = 2;
constexpr int Spanish = 4;
constexpr int Polish = 10;
constexpr int Slovak = 21;

QString Capitals()
{
    QString letters;
    for (char letter = 'A'; letter <= 'Z'; ++letter)
        letters += QLatin1Char(letter);
    return letters;
}
} // namespace

/// The dead keys: they wait for a letter and leave those alive that they go with.
class TKeyboardAccentsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyDeadKeyMakesItsLetters_data();
    void everyDeadKeyMakesItsLetters();
    void onlyItsLettersStayAliveAndShowWhatTheyMake();
    void smallLettersGetSmallAccents();
    void shiftGivesOneAccentedCapital();
    void aDeadKeyTwiceIsNone();
    void anotherDeadKeyTakesItsPlace();
    void anotherCharacterIsPlainAndEndsIt();
    void theLockEndsIt();
    void shiftKeepsItAndItsMark();
    void theDeadKeyShowsThatItWaits();
    void itEndsWithTheLayoutAndWithTheKeyboard();
    void anotherLayoutForgetsItsLetters();
    void anAccentedLetterMayBeRefused();
    void theSpanishAcuteLeavesOutTheI();
};

void TKeyboardAccentsTest::everyDeadKeyMakesItsLetters_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<QString>("deadKey");
    QTest::addColumn<QString>("letters");
    for (int layout = 0; layout < KEYBOARD_LAYOUT_COUNT; ++layout)
    {
        QString const accents =
            QString::fromUcs4(TKeyboardTables::Layouts[std::size_t(layout)][TKeyboardTables::RowAccents]);
        for (int i = 0; i < accents.size(); ++i)
        {
            if (Capitals().contains(accents.at(i)))
                continue;
            int end = i + 1;
            while (end < accents.size() && Capitals().contains(accents.at(end)))
                ++end;
            QTest::newRow(qPrintable(QStringLiteral("%1 of layout %2").arg(accents.at(i)).arg(layout)))
                << layout << accents.mid(i, 1) << accents.mid(i + 1, end - i - 1);
        }
    }
}

void TKeyboardAccentsTest::everyDeadKeyMakesItsLetters()
{
    QFETCH(int, layout);
    QFETCH(QString, deadKey);
    QFETCH(QString, letters);
    TKeyboardStage stage(layout);
    auto const* const found = std::find(TKeyboardTables::DeadKeys.begin(), TKeyboardTables::DeadKeys.end(),
                                        deadKey.at(0).unicode());
    QString const forms = QString::fromUcs4(
        TKeyboardTables::AccentedChars[std::size_t(found - TKeyboardTables::DeadKeys.begin())]);
    QString expected;
    for (QChar const letter : qAsConst(letters))
    {
        QChar const form = forms.at(letter.unicode() - 'A');
        expected += form;
        QVERIFY(stage.Type(deadKey));
        QCOMPARE(stage.Key(letter), nullptr);
        QVERIFY(stage.Type(QString(form)));
        QVERIFY(stage.Key(letter));
    }
    QCOMPARE(stage.typed, expected);
}

void TKeyboardAccentsTest::onlyItsLettersStayAliveAndShowWhatTheyMake()
{
    TKeyboardStage stage(Slovak);
    QVERIFY(stage.Type(QString(Caron)));
    QString enabled = stage.Enabled();
    std::sort(enabled.begin(), enabled.end());
    QString expected = QStringLiteral(" ,-./0123456789=[\\]") + Acute + QStringLiteral("ÄÔČĎĽŇŠŤŽ") + Caron;
    std::sort(expected.begin(), expected.end());
    QCOMPARE(enabled, expected);
    QVERIFY(!stage.Key(QLatin1Char('A'))->isEnabled());
    QVERIFY(!stage.Key(QLatin1Char('C')));

    QVERIFY(stage.Type(QStringLiteral("Č")));
    QVERIFY(stage.Key(QLatin1Char('A'))->isEnabled());
    QVERIFY(stage.Key(QLatin1Char('C'))->isEnabled());
}

void TKeyboardAccentsTest::smallLettersGetSmallAccents()
{
    TKeyboardStage stage(Portuguese);
    stage.finger.Touch(stage.Lock());
    QVERIFY(stage.Type(QStringLiteral("~ã")));
    QCOMPARE(stage.typed, QStringLiteral("ã"));
    QVERIFY(stage.Type(QStringLiteral("a")));
}

void TKeyboardAccentsTest::shiftGivesOneAccentedCapital()
{
    TKeyboardStage stage(Portuguese);
    stage.finger.Touch(stage.Lock());
    stage.finger.Touch(stage.Shift());
    QVERIFY(stage.Type(QStringLiteral("~Ãa")));
    QCOMPARE(stage.typed, QStringLiteral("Ãa"));

    // Both stand: small again.
    stage.finger.Touch(stage.Lock());
    stage.finger.Touch(stage.Shift());
    QVERIFY(stage.Type(QStringLiteral("~ãA")));
    QCOMPARE(stage.typed, QStringLiteral("ÃaãA"));
}

void TKeyboardAccentsTest::aDeadKeyTwiceIsNone()
{
    TKeyboardStage stage(Spanish);
    QString const rows = stage.AllFaces();
    QVERIFY(stage.Type(QString(2, Acute)));
    QCOMPARE(stage.AllFaces(), rows);
    QVERIFY(stage.Type(QStringLiteral("AK")));
    QCOMPARE(stage.typed, QStringLiteral("AK"));
}

void TKeyboardAccentsTest::anotherDeadKeyTakesItsPlace()
{
    TKeyboardStage stage(Portuguese);
    QImage const idle = stage.Key(Acute)->grab().toImage();
    QVERIFY(stage.Type(QString(Acute)));
    QVERIFY(stage.Key(Acute)->grab().toImage() != idle);
    QVERIFY(stage.Type(QString(Grave)));
    QCOMPARE(stage.Key(Acute)->grab().toImage(), idle);
    QVERIFY(stage.Type(QStringLiteral("ÀA")));
    QCOMPARE(stage.typed, QStringLiteral("ÀA"));
}

void TKeyboardAccentsTest::anotherCharacterIsPlainAndEndsIt()
{
    TKeyboardStage stage(Portuguese);
    // A letter beside the alphabet, a digit, a blank: none of them takes the accent.
    for (QString const& character : {QStringLiteral("Ç"), QStringLiteral("7"), QStringLiteral(" ")})
    {
        stage.typed.clear();
        QVERIFY(stage.Type(Acute + character + QLatin1Char('A')));
        QCOMPARE(stage.typed, character + QLatin1Char('A'));
    }
    // A letter of the alphabet that the accent does not go with is dead, but a click may have been under way.
    stage.typed.clear();
    QVERIFY(stage.Type(QString(Acute)));
    TKey* const dead = stage.Key(QLatin1Char('K'));
    QVERIFY(!dead->isEnabled());
    Q_EMIT dead->Clicked(dead->GetButtonId());
    QCOMPARE(stage.typed, QStringLiteral("K"));
    QVERIFY(dead->isEnabled());
}

void TKeyboardAccentsTest::theLockEndsIt()
{
    TKeyboardStage stage(Portuguese);
    QVERIFY(stage.Type(QString(Acute)));
    stage.finger.Touch(stage.Lock());
    QVERIFY(stage.Type(QStringLiteral("ak")));
    QCOMPARE(stage.typed, QStringLiteral("ak"));
}

void TKeyboardAccentsTest::shiftKeepsItAndItsMark()
{
    TKeyboardStage stage(Portuguese);
    QVERIFY(stage.Type(QString(Acute)));
    QImage const waiting = stage.Key(Acute)->grab().toImage();
    stage.finger.Touch(stage.Shift());
    QCOMPARE(stage.Key(Acute)->grab().toImage(), waiting);
    QVERIFY(!stage.Key(QLatin1Char('k'))->isEnabled());
    QVERIFY(stage.Type(QStringLiteral("áA")));
    QCOMPARE(stage.typed, QStringLiteral("áA"));
}

void TKeyboardAccentsTest::theDeadKeyShowsThatItWaits()
{
    TKeyboardStage stage(Portuguese);
    TKey* const key = stage.Key(Acute);
    QImage const idle = key->grab().toImage();
    QVERIFY(stage.Key(QLatin1Char('K'))->grab().toImage().pixelColor(30, 12) != idle.pixelColor(30, 12));
    stage.finger.Touch(key);
    QImage const waiting = key->grab().toImage();
    QVERIFY(waiting != idle);
    key->OnMMIHighlight();
    QVERIFY(key->grab().toImage() != waiting);
    key->OnMMIUnHighlight();
    stage.finger.Touch(key);
    QCOMPARE(key->grab().toImage(), idle);
}

void TKeyboardAccentsTest::itEndsWithTheLayoutAndWithTheKeyboard()
{
    TKeyboardStage stage(Portuguese, Spanish);
    QVERIFY(stage.Type(QString(Acute)));
    stage.finger.Touch(stage.LayoutKey());
    QVERIFY(stage.Type(QStringLiteral("AK")));
    QVERIFY(stage.Type(QString(Acute)));
    stage.keyboard->HideWindow();
    stage.keyboard->ShowWindow(false);
    QVERIFY(stage.Type(QStringLiteral("AK")));
    QCOMPARE(stage.typed, QStringLiteral("AKAK"));
}

void TKeyboardAccentsTest::anotherLayoutForgetsItsLetters()
{
    TKeyboardStage stage(Polish);
    QVERIFY(stage.Type(QString(Acute)));
    QVERIFY(stage.Key(QChar(0x0106))->isEnabled());
    stage.keyboard->SetLayout(EKeyboardLayout(Portuguese), KEYBOARD_LAYOUT_NONE);
    QVERIFY(stage.Type(QString(Acute)));
    QVERIFY(stage.Key(QChar(0xC1))->isEnabled());
    TKey const* const plain = stage.Key(QLatin1Char('C'));
    QVERIFY(plain && !plain->isEnabled());
}

void TKeyboardAccentsTest::anAccentedLetterMayBeRefused()
{
    TKeyboardStage stage(Portuguese);
    TRefusingCheck const check(QStringLiteral("Á"));
    stage.keyboard->PushKeyChecker(&check);
    QVERIFY(stage.Type(QString(Acute)));
    QVERIFY(!stage.Key(QChar(0xC1))->isEnabled());
    QVERIFY(stage.Type(QStringLiteral("É")));
    QVERIFY(stage.Key(QLatin1Char('A'))->isEnabled());
}

void TKeyboardAccentsTest::theSpanishAcuteLeavesOutTheI()
{
    TKeyboardStage stage(Spanish);
    QVERIFY(stage.Type(QString(Acute)));
    QVERIFY(!stage.Key(QLatin1Char('I'))->isEnabled());
    QVERIFY(stage.Key(QChar(0xDA))->isEnabled());
}

COMMONUI_TEST(TKeyboardAccentsTest)

#include "TKeyboardAccentsTest.moc"
