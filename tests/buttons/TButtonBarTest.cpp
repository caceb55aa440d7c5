#include "TButtonBar.h"
#include "ButtonTestSupport.h"
#include "TButtonBarButton.h"

#include <QSignalSpy>

class TButtonBarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_Screen = std::make_unique<TTestScreen>();
        m_Window = std::make_unique<TListeningWindow>();
        m_Bar = new TButtonBar(m_Window.get());
        m_Bar->SetFixedWidth(301);
        m_Window->Expose();
    }
    void cleanup()
    {
        m_Window.reset();
        m_Screen.reset();
    }

    void barIsSeventyHigh();
    void visibleButtonsShareTheWidth();
    void barWithoutAVisibleButtonStaysAsItIs();
    void newWidthIsSharedAtOnce();
    void resizeFromOutsideIsSharedToo();
    void assigningSetsAllThatIsNamed();
    void buttonsAreTheBarsOwnKind();
    void buttonHasTheStandardSkins();
    void barIsNotDragged();

private:
    void Assign(int count)
    {
        for (int id = 0; id < count; ++id)
            m_Bar->AssignButton(id, QString(), true, QString::number(id), QString());
    }
    QRect Place(int id) const { return m_Bar->GetButton(id)->geometry(); }

    std::unique_ptr<TTestScreen> m_Screen;
    std::unique_ptr<TListeningWindow> m_Window;
    TButtonBar* m_Bar = nullptr;
};

void TButtonBarTest::barIsSeventyHigh()
{
    QCOMPARE(m_Bar->size(), QSize(301, 70));
    QCOMPARE(m_Bar->minimumHeight(), 70);
    QCOMPARE(m_Bar->maximumHeight(), 70);
}

void TButtonBarTest::visibleButtonsShareTheWidth()
{
    Assign(3);
    QCOMPARE(Place(2), QRect(0, 0, 100, 70));
    QCOMPARE(Place(1), QRect(100, 0, 100, 70));
    QCOMPARE(Place(0), QRect(200, 0, 100, 70));
    m_Bar->SetButtonVisibility(1, false);
    QCOMPARE(Place(2), QRect(0, 0, 150, 70));
    QCOMPARE(Place(0), QRect(150, 0, 150, 70));
    // The hidden one takes the width as well.
    QCOMPARE(m_Bar->GetButton(1)->width(), 150);
    m_Bar->SetButtonVisibility(1, true);
    QCOMPARE(Place(1), QRect(100, 0, 100, 70));
}

void TButtonBarTest::barWithoutAVisibleButtonStaysAsItIs()
{
    m_Bar->ResizeButtons();
    m_Bar->SetFixedWidth(200);
    Assign(1);
    m_Bar->SetButtonVisibility(0, false);
    m_Bar->SetFixedWidth(100);
    QCOMPARE(m_Bar->width(), 100);
    QCOMPARE(m_Bar->GetButton(0)->width(), 200);
    m_Bar->SetButtonVisibility(9, false);
}

void TButtonBarTest::newWidthIsSharedAtOnce()
{
    Assign(2);
    m_Bar->SetFixedWidth(160);
    QCOMPARE(Place(1), QRect(0, 0, 80, 70));
    QCOMPARE(Place(0), QRect(80, 0, 80, 70));
    m_Bar->SetFixedWidth(-5);
    QCOMPARE(m_Bar->width(), 0);
}

void TButtonBarTest::resizeFromOutsideIsSharedToo()
{
    Assign(2);
    m_Bar->setFixedWidth(180);
    QCOMPARE(Place(0), QRect(90, 0, 90, 70));
}

void TButtonBarTest::assigningSetsAllThatIsNamed()
{
    m_Bar->AssignButton(4, m_Screen->AddImage(QStringLiteral("icon"), Qt::red), false, QStringLiteral("No"),
                        QStringLiteral("Tip"));
    TPushButton const* const button = m_Bar->GetButton(4);
    QVERIFY(!button->isEnabled());
    QVERIFY(button->isVisible());
    QCOMPARE(button->GetText(), QStringLiteral("No"));
    QCOMPARE(button->GetToolTip(), QStringLiteral("Tip"));
    QCOMPARE(button->GetIconSize(), QSize(20, 20));
    m_Bar->DisableToolBar();
    m_Bar->EnableToolBar();
    QVERIFY(!button->isEnabled());
    m_Bar->AssignButton(4, QString(), true, QString(), QString());
    QVERIFY(button->isEnabled());
    QVERIFY(!m_Bar->GetButton(5));
}

void TButtonBarTest::buttonsAreTheBarsOwnKind()
{
    Assign(1);
    auto* const button = qobject_cast<TButtonBarButton*>(m_Bar->GetButton(0));
    QVERIFY(button);
    QCOMPARE(button->GetButtonId(), -1);
    QCOMPARE(button->font().pixelSize(), 16);
    QCOMPARE(button->font().weight(), 75);
    QCOMPARE(button->height(), 70);
    QSignalSpy clicked(button, &QAbstractButton::clicked);
    TFinger(*m_Window).Tap(*button);
    QCOMPARE(clicked.count(), 1);
}

void TButtonBarTest::barIsNotDragged()
{
    Assign(3);
    TFinger const finger(*m_Window);
    finger.Press(QPoint(250, 30));
    finger.Move(QPoint(50, 30));
    finger.Release(QPoint(50, 30));
    QCOMPARE(Place(0).x(), 200);
    QCOMPARE(m_Window->heard.size(), 3);
}

void TButtonBarTest::buttonHasTheStandardSkins()
{
    m_Screen->AddImage(QStringLiteral("NewStandardButton"), Qt::red);
    m_Screen->AddImage(QStringLiteral("NewStandardButtonSelected"), Qt::green);
    Assign(1);
    TPushButton* const button = m_Bar->GetButton(0);
    auto const seen = [&] { return button->grab().toImage().pixelColor(4, 4); };
    QCOMPARE(seen(), QColor(Qt::red));
    button->setDown(true);
    QCOMPARE(seen(), QColor(Qt::green));
}

COMMONUI_TEST(TButtonBarTest)
#include "TButtonBarTest.moc"
