#include "TTypeSelectButton.h"
#include "ButtonTestSupport.h"
#include "GoldenPicture.h"

#include <QSignalSpy>

class TTypeSelectButtonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_Screen = std::make_unique<TTestScreen>();
        m_Window = std::make_unique<TListeningWindow>(QSize(200, 200));
        m_Window->setPalette(QPalette(QColor(38, 41, 46)));
        m_Button = new TTypeSelectButton(m_Window.get(), QSize(120, 90), QPoint(10, 20), 6);
        m_Button->resize(120, 90);
    }
    void cleanup()
    {
        m_Window.reset();
        m_Screen.reset();
    }

    void standsWhereItIsTold();
    void cornerElementIsASixthOfTheWidth_data();
    void cornerElementIsASixthOfTheWidth();
    void cornerElementFollowsTheSize();
    void withoutANameThereIsNoCornerElement();
    void anySizeIsDrawn();
    void mayBeDeletedByItsClick();
    void picture();

private:
    QImage Seen() const { return m_Button->grab().toImage(); }
    // Where the picture in the corner is seen, by its colour.
    QRect Corner() const
    {
        QRect found;
        QImage const picture = Seen();
        for (int y = 0; y < picture.height(); ++y)
        {
            for (int x = 0; x < picture.width(); ++x)
            {
                if (picture.pixelColor(x, y) == QColor(Qt::red))
                    found |= QRect(x, y, 1, 1);
            }
        }
        return found;
    }

    std::unique_ptr<TTestScreen> m_Screen;
    std::unique_ptr<TListeningWindow> m_Window;
    TTypeSelectButton* m_Button = nullptr;
};

void TTypeSelectButtonTest::standsWhereItIsTold()
{
    QCOMPARE(m_Button->geometry(), QRect(10, 20, 120, 90));
    QCOMPARE(m_Button->minimumSize(), QSize(120, 90));
    QCOMPARE(m_Button->GetButtonId(), 6);
    QImage const up = Seen();
    m_Button->setDown(true);
    QVERIFY(Seen() != up);
}

void TTypeSelectButtonTest::cornerElementIsASixthOfTheWidth_data()
{
    QTest::addColumn<QSize>("button");
    QTest::addColumn<QSize>("element");
    QTest::addColumn<QRect>("corner");
    QTest::newRow("square") << QSize(120, 90) << QSize(20, 20) << QRect(88, 4, 20, 20);
    QTest::newRow("all truncated") << QSize(125, 111) << QSize(20, 20) << QRect(92, 4, 20, 20);
    QTest::newRow("larger") << QSize(180, 200) << QSize(20, 20) << QRect(133, 9, 30, 30);
    QTest::newRow("wide picture") << QSize(120, 90) << QSize(40, 20) << QRect(88, 4, 20, 10);
}

void TTypeSelectButtonTest::cornerElementIsASixthOfTheWidth()
{
    QFETCH(QSize, button);
    QFETCH(QSize, element);
    m_Button->resize(button);
    m_Button->SetCornerElement(m_Screen->AddImage(QStringLiteral("corner"), Qt::red, element));
    QTEST(Corner(), "corner");
}

void TTypeSelectButtonTest::cornerElementFollowsTheSize()
{
    m_Window->Expose();
    m_Button->SetCornerElement(m_Screen->AddImage(QStringLiteral("corner"), Qt::red));
    QCOMPARE(Corner().width(), 20);
    m_Button->resize(180, 90);
    QCOMPARE(Corner(), QRect(133, 4, 30, 30));
}

void TTypeSelectButtonTest::withoutANameThereIsNoCornerElement()
{
    QImage const plain = Seen();
    m_Button->SetCornerElement(m_Screen->AddImage(QStringLiteral("corner"), Qt::red));
    QVERIFY(Seen() != plain);
    m_Button->SetCornerElement(QString());
    QCOMPARE(Seen(), plain);
}

void TTypeSelectButtonTest::anySizeIsDrawn()
{
    m_Button->setMinimumSize(0, 0);
    m_Button->SetCornerElement(m_Screen->AddImage(QStringLiteral("corner"), Qt::red));
    for (QSize const& size : {QSize(0, 0), QSize(5, 90), QSize(120, 1)})
    {
        m_Button->resize(size);
        QVERIFY(!m_Window->grab().isNull());
    }
    m_Screen.reset();
    m_Button->SetCornerElement(QStringLiteral("other"));
    m_Button->resize(120, 90);
    QCOMPARE(Corner(), QRect());
}

void TTypeSelectButtonTest::mayBeDeletedByItsClick()
{
    QPointer<TTypeSelectButton> const button(m_Button);
    m_Window->Expose();
    QSignalSpy clicked(m_Button, &TPushButton::Clicked);
    connect(m_Button, &TPushButton::Clicked, this, [button] { delete button.data(); });
    TFinger(*m_Window).Tap(QPoint(60, 60));
    QCOMPARE(clicked, (QList<QVariantList>{{6}}));
    QVERIFY(!button);
}

void TTypeSelectButtonTest::picture()
{
    m_Button->SetCornerElement(QStringLiteral("ToolTipMarkSelected"));
    m_Button->SetIcon(QStringLiteral("icon-sprayer"), QSize(55, 55), true);
    m_Window->Expose();
    COMPARE_PICTURE(Seen(), "type-select-button");
}

COMMONUI_TEST(TTypeSelectButtonTest)
#include "TTypeSelectButtonTest.moc"
