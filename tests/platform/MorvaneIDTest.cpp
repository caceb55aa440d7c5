#include "MorvaneID.h"

#include "TestCase.h"

#include <QRandomGenerator>

#include <algorithm>
#include <array>
#include <limits>

using KVN::MorvaneID;

namespace
{
constexpr QUuid Module(0x94816b5c, 0xf4ed, 0x4060, 0xa7, 0x34, 0xc1, 0x6b, 0x1c, 0x8b, 0xba, 0x27);

// Any 128 bits, not only the well-formed versions.
QUuid RandomUuid(QRandomGenerator& random)
{
    std::array<quint32, 4> words{};
    random.fillRange(words.data(), int(words.size()));
    return QUuid::fromRfc4122(QByteArray(reinterpret_cast<char const*>(words.data()), 16));
}
} // namespace

class MorvaneIDTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaultIsInvalidAndHasNoText()
    {
        MorvaneID const id;
        QVERIFY(!id.IsValid());
        QVERIFY(id.ToString().isEmpty());
        QVERIFY(id.GetModuleUID().isNull());
        QCOMPARE(id.GetView(), 0U);
    }

    void nullUuidWithAViewIsTheInvalidId()
    {
        MorvaneID const id(QUuid(), 7);
        QVERIFY(!id.IsValid());
        QVERIFY(id == MorvaneID());
        QVERIFY(id.ToString().isEmpty());
    }

    void moduleWithoutAViewIsTheBareUuid()
    {
        QCOMPARE(MorvaneID(Module).ToString(), QStringLiteral("94816b5c-f4ed-4060-a734-c16b1c8bba27"));
    }

    void viewFollowsInHexadecimal()
    {
        QCOMPARE(MorvaneID(Module, 0x1af).ToString(),
                 QStringLiteral("94816b5c-f4ed-4060-a734-c16b1c8bba27-1af"));
    }

    void randomIdsSurviveTheRoundTrip()
    {
        QRandomGenerator random(20240611);
        for (int i = 0; i < 5000; ++i)
        {
            quint32 const view = random.generate() >> random.bounded(32);
            MorvaneID const id(RandomUuid(random), view);
            QString const text = id.ToString();
            MorvaneID const back = MorvaneID::FromString(text);
            QVERIFY2(back == id, qPrintable(text));
            QCOMPARE(back.GetView(), view);
            QCOMPARE(back.GetModuleUID(), id.GetModuleUID());
        }
    }

    void textHasHexadecimalDigitsAndHyphensOnly()
    {
        QString const text = MorvaneID(Module, std::numeric_limits<quint32>::max()).ToString();
        QVERIFY(std::all_of(text.cbegin(), text.cend(),
                            [](QChar c) { return QStringLiteral("0123456789abcdef-").contains(c); }));
        QVERIFY(text.endsWith(QStringLiteral("-ffffffff")));
    }

    void readsOtherSpellings_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<quint32>("view");
        QTest::newRow("upper case") << "94816B5C-F4ED-4060-A734-C16B1C8BBA27" << 0U;
        QTest::newRow("braces") << "{94816b5c-f4ed-4060-a734-c16b1c8bba27}" << 0U;
        QTest::newRow("braces and view") << "{94816b5c-f4ed-4060-a734-c16b1c8bba27}-2" << 2U;
        QTest::newRow("view in upper case") << "94816b5c-f4ed-4060-a734-c16b1c8bba27-AB" << 0xabU;
        QTest::newRow("largest view") << "94816b5c-f4ed-4060-a734-c16b1c8bba27-ffffffff" << 0xffffffffU;
    }

    void readsOtherSpellings()
    {
        QFETCH(QString, text);
        QFETCH(quint32, view);
        QVERIFY(MorvaneID::FromString(text) == MorvaneID(Module, view));
    }

    void refusesEverythingElse_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("nothing") << QString();
        QTest::newRow("null uuid") << "00000000-0000-0000-0000-000000000000";
        QTest::newRow("null uuid with a view") << "00000000-0000-0000-0000-000000000000-1";
        QTest::newRow("no hyphens") << "94816b5cf4ed4060a734c16b1c8bba27";
        QTest::newRow("hyphen misplaced") << "94816b5-cf4ed-4060-a734-c16b1c8bba27";
        QTest::newRow("digit missing") << "94816b5c-f4ed-4060-a734-c16b1c8bba2";
        QTest::newRow("no hexadecimal digit") << "94816b5c-f4ed-4060-a734-c16b1c8bba2g";
        QTest::newRow("letter that looks like a digit")
            << QStringLiteral(u"94816b5c-f4ed-4060-a734-c16b1c8bba2\u0667");
        QTest::newRow("blank before") << " 94816b5c-f4ed-4060-a734-c16b1c8bba27";
        QTest::newRow("blank behind") << "94816b5c-f4ed-4060-a734-c16b1c8bba27 ";
        QTest::newRow("brace left open") << "{94816b5c-f4ed-4060-a734-c16b1c8bba27";
        QTest::newRow("brace only closed") << "94816b5c-f4ed-4060-a734-c16b1c8bba27}";
        QTest::newRow("brace around the view") << "{94816b5c-f4ed-4060-a734-c16b1c8bba27-1}";
        QTest::newRow("hyphen without a view") << "94816b5c-f4ed-4060-a734-c16b1c8bba27-";
        QTest::newRow("view written as 0") << "94816b5c-f4ed-4060-a734-c16b1c8bba27-0";
        QTest::newRow("view with a leading 0") << "94816b5c-f4ed-4060-a734-c16b1c8bba27-01";
        QTest::newRow("view with a prefix") << "94816b5c-f4ed-4060-a734-c16b1c8bba27-0x1";
        QTest::newRow("negative view") << "94816b5c-f4ed-4060-a734-c16b1c8bba27--1";
        QTest::newRow("signed view") << "94816b5c-f4ed-4060-a734-c16b1c8bba27-+1";
        QTest::newRow("view beyond 32 bits") << "94816b5c-f4ed-4060-a734-c16b1c8bba27-100000000";
        QTest::newRow("view beyond 64 bits") << "94816b5c-f4ed-4060-a734-c16b1c8bba27-" + QString(40, 'f');
        QTest::newRow("text behind the view") << "94816b5c-f4ed-4060-a734-c16b1c8bba27-1z";
        QTest::newRow("blank behind the view") << "94816b5c-f4ed-4060-a734-c16b1c8bba27-1 ";
    }

    void refusesEverythingElse()
    {
        QFETCH(QString, text);
        QVERIFY(!MorvaneID::FromString(text).IsValid());
    }

    void sortsByModuleThenView()
    {
        QUuid const later(QStringLiteral("{e4fde650-0b2d-4eaf-a817-97116391423e}"));
        QVERIFY(Module < later);
        QVERIFY(MorvaneID(Module, 9) < MorvaneID(later, 1));
        QVERIFY(MorvaneID(Module, 1) < MorvaneID(Module, 9));
        QVERIFY(!(MorvaneID(Module, 9) < MorvaneID(Module, 9)));
        QVERIFY(MorvaneID(Module, 1) != MorvaneID(Module, 9));
        QVERIFY(MorvaneID(Module, 1) != MorvaneID(later, 1));
    }

    void travelsInAVariant()
    {
        QVariant const variant = QVariant::fromValue(MorvaneID(Module, 3));
        QVERIFY(variant.value<MorvaneID>() == MorvaneID(Module, 3));
    }
};

COMMONUI_TEST(MorvaneIDTest)
#include "MorvaneIDTest.moc"
