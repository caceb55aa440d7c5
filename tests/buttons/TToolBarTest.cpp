#include "TToolBar.h"
#include "ButtonTestSupport.h"

#include <QSignalSpy>

class TToolBarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_Screen = std::make_unique<TTestScreen>();
        m_Window = std::make_unique<TListeningWindow>();
        m_Bar = new TToolBar(m_Window.get());
        m_Bar->resize(400, 60);
        m_Window->Expose();
    }
    void cleanup()
    {
        m_Window.reset();
        m_Screen.reset();
    }

    void fiveButtonsStartDisabledWithoutFocus();
    void firstKeyDecidesTheHalf_data();
    void firstKeyDecidesTheHalf();
    void otherKeysDecideNothing();
    void iconEnablesAndItsRemovalDisables();
    void textIsSetWithoutEnabling();
    void keyHoldsTheButtonDown();
    void keyOfADisabledButtonDoesNothing();
    void foreignKeysDoNothing();
    void paintsNothing();

private:
    QList<TPushButton*> Buttons() const { return m_Bar->findChildren<TPushButton*>(); }

    std::unique_ptr<TTestScreen> m_Screen;
    std::unique_ptr<TListeningWindow> m_Window;
    TToolBar* m_Bar = nullptr;
};

void TToolBarTest::fiveButtonsStartDisabledWithoutFocus()
{
    QCOMPARE(Buttons().size(), 5);
    QList<TPushButton*> const buttons = Buttons();
    for (TPushButton const* const button : buttons)
    {
        QVERIFY(!button->isEnabled());
        QCOMPARE(button->focusPolicy(), Qt::NoFocus);
        QVERIFY(button->isVisible());
    }
}

void TToolBarTest::firstKeyDecidesTheHalf_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<QByteArray>("row");
    QTest::addColumn<QByteArray>("others");
    QByteArray const low("12345");
    QByteArray const high("67890");
    for (char const key : low)
        QTest::newRow(QByteArray("first ").append(key).constData()) << int(key) << low << high;
    for (char const key : high)
        QTest::newRow(QByteArray("first ").append(key).constData()) << int(key) << high << low;
}

void TToolBarTest::firstKeyDecidesTheHalf()
{
    QFETCH(int, first);
    QFETCH(QByteArray, row);
    QFETCH(QByteArray, others);
    QVERIFY(m_Bar->GetButton(first));
    for (int i = 0; i < 5; ++i)
    {
        QCOMPARE(m_Bar->GetButton(row[i]), Buttons().at(i));
        QVERIFY(!m_Bar->GetButton(others[i]));
    }
    for (int const key : {0, -1, 47, 58, 65})
        QVERIFY(!m_Bar->GetButton(key));
}

void TToolBarTest::otherKeysDecideNothing()
{
    for (int const key : {0, -1, 47, 58, 65})
        QVERIFY(!m_Bar->GetButton(key));
    QCOMPARE(m_Bar->GetButton('0'), Buttons().at(4));
}

void TToolBarTest::iconEnablesAndItsRemovalDisables()
{
    m_Bar->SetIcon('2', m_Screen->AddImage(QStringLiteral("icon"), Qt::red), ICON_TYPE_STANDARD);
    TPushButton const* const button = Buttons().at(1);
    QVERIFY(button->isEnabled());
    QCOMPARE(button->GetIconSize(), QSize(20, 20));
    QVERIFY(!Buttons().at(0)->isEnabled());
    m_Bar->RemoveIcon('2');
    QVERIFY(!button->isEnabled());
    QCOMPARE(button->GetIconSize(), QSize());
}

void TToolBarTest::textIsSetWithoutEnabling()
{
    m_Bar->SetText('6', QStringLiteral("Six"));
    QCOMPARE(Buttons().at(0)->GetText(), QStringLiteral("Six"));
    QVERIFY(!Buttons().at(0)->isEnabled());
}

void TToolBarTest::keyHoldsTheButtonDown()
{
    m_Bar->SetIcon('3', QString(), ICON_TYPE_STANDARD);
    TPushButton* const button = Buttons().at(2);
    QSignalSpy pressed(button, &TPushButton::Pressed);
    QSignalSpy clicked(button, &TPushButton::Clicked);
    m_Bar->ButtonPress('3');
    QVERIFY(button->isDown());
    QCoreApplication::processEvents();
    QVERIFY(button->isDown());
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(clicked.count(), 0);
    m_Bar->ButtonRelease('3');
    QTRY_VERIFY(!button->isDown());
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(clicked.count(), 1);
}

void TToolBarTest::keyOfADisabledButtonDoesNothing()
{
    QSignalSpy pressed(Buttons().at(0), &TPushButton::Pressed);
    m_Bar->ButtonPress('1');
    m_Bar->ButtonRelease('1');
    QCoreApplication::processEvents();
    QVERIFY(!Buttons().at(0)->isDown());
    QCOMPARE(pressed.count(), 0);
}

void TToolBarTest::foreignKeysDoNothing()
{
    m_Bar->SetIcon('1', QString(), ICON_TYPE_STANDARD);
    m_Bar->SetIcon('7', QString(), ICON_TYPE_STANDARD);
    m_Bar->SetText('7', QStringLiteral("Seven"));
    m_Bar->RemoveIcon('7');
    m_Bar->ButtonPress('7');
    m_Bar->ButtonRelease('7');
    QList<TPushButton*> const buttons = Buttons();
    for (TPushButton const* const button : buttons)
    {
        QVERIFY(!button->isDown());
        QCOMPARE(button->GetText(), QString());
    }
    QVERIFY(Buttons().at(0)->isEnabled());
    QVERIFY(!Buttons().at(1)->isEnabled());
}

void TToolBarTest::paintsNothing()
{
    m_Bar->setStyleSheet(QStringLiteral("background: red"));
    QList<TPushButton*> const buttons = Buttons();
    for (TPushButton* const button : buttons)
        button->hide();
    QCOMPARE(m_Window->grab().toImage().pixelColor(10, 10), QColor(Qt::blue));
}

COMMONUI_TEST(TToolBarTest)
#include "TToolBarTest.moc"
