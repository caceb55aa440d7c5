#include "TXMLSettings.h"
#include "TestCase.h"

#include <QDomDocument>

class TXMLSettingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void childrenComeByTag_data();
    void childrenComeByTag();
    void firstOfSeveralChildrenStands();
    void nullElementHasNoChildren();
    void childrenAreTheElementsThemselves();
};

void TXMLSettingsTest::childrenComeByTag_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QStringList>("tags");
    QTest::newRow("none") << QByteArray("<a/>") << QStringList();
    QTest::newRow("sorted by tag") << QByteArray("<a><c/><b/></a>") << QStringList{"b", "c"};
    QTest::newRow("children alone") << QByteArray("<a><b><c/></b></a>") << QStringList{"b"};
    QTest::newRow("case counts") << QByteArray("<a><b/><B/></a>") << QStringList{"B", "b"};
    QTest::newRow("elements alone") << QByteArray("<a>text<!-- b --><?c d?><![CDATA[<e/>]]><f/></a>")
                                    << QStringList{"f"};
}

void TXMLSettingsTest::childrenComeByTag()
{
    QFETCH(QByteArray, xml);
    QDomDocument document;
    QVERIFY(document.setContent(xml));
    QTEST(QStringList(TXMLSettings::GetChildrenAsMap(document.documentElement()).keys()), "tags");
}

void TXMLSettingsTest::firstOfSeveralChildrenStands()
{
    QDomDocument document;
    QVERIFY(document.setContent(QByteArray("<a><b n='1'/><c/><b n='2'/></a>")));
    auto const children = TXMLSettings::GetChildrenAsMap(document.documentElement());
    QCOMPARE(children.size(), 2);
    QCOMPARE(children.value("b").attribute("n"), QString("1"));
}

void TXMLSettingsTest::nullElementHasNoChildren()
{
    QVERIFY(TXMLSettings::GetChildrenAsMap(QDomElement()).isEmpty());
}

void TXMLSettingsTest::childrenAreTheElementsThemselves()
{
    QDomDocument document;
    QVERIFY(document.setContent(QByteArray("<a><b/></a>")));
    QDomElement child = TXMLSettings::GetChildrenAsMap(document.documentElement()).value("b");
    child.setAttribute("n", 1);
    QCOMPARE(document.documentElement().firstChildElement().attribute("n"), QString("1"));
}

COMMONUI_TEST(TXMLSettingsTest)
#include "TXMLSettingsTest.moc"
