#include "KeyCheck.h"
#include "TestCase.h"

namespace
{
class TDigitsOnly : public Keyboard_layouts_api::KeyCheck
{
public:
    bool IsCharacterAllowed(QChar character) const override { return character.isDigit(); }
    bool IsStringAllowed(QString const& text) const override { return Filtered(text) == text; }
};
} // namespace

class KeyCheckTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dropsWhatIsRefused();
    void itsLifeEndsWithIt();
};

void KeyCheckTest::dropsWhatIsRefused()
{
    TDigitsOnly const check;
    QCOMPARE(check.Filtered(QStringLiteral("a1\r\n2\t3b")), QStringLiteral("123"));
    QVERIFY(check.Filtered(QString()).isEmpty());
    QVERIFY(check.Filtered(QStringLiteral("none")).isEmpty());
    QVERIFY(!check.IsStringAllowed(QStringLiteral("1a")));
}

void KeyCheckTest::itsLifeEndsWithIt()
{
    QWeakPointer<Keyboard_layouts_api::KeyCheck const> life;
    {
        TDigitsOnly const check;
        life = check.Life();
        QCOMPARE(life.toStrongRef().data(), &check);
    }
    QVERIFY(life.isNull());
}

COMMONUI_TEST(KeyCheckTest)

#include "KeyCheckTest.moc"
