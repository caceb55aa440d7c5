#include "TNavigationButton.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "TestCase.h"
#include "TViewStage.h"

#include <QPainter>
#include <QSignalSpy>

namespace
{
constexpr int Id = 5;
constexpr int Width = 67;
constexpr int Height = 63;
const QColor Behind(20, 90, 40);

// A button in its place on the screen's navigation bar: its right edge is the pixel column 66.
class TButtonOnBar
{
public:
    TButtonOnBar()
    {
        TNavigationBar* const bar = stage.screen->GetNavigationBar();
        bar->AssignButton(Id, QString(), QString(), QString());
        button = qobject_cast<TNavigationButton*>(bar->GetButton(Id));
        QObject::connect(button, &TNavigationButton::DraggedOffRight, button,
                         [this](int id) { events.append(QStringLiteral("dragged %1").arg(id)); });
        QObject::connect(button, &TPushButton::Clicked, button,
                         [this](int id) { events.append(QStringLiteral("clicked %1").arg(id)); });
        QObject::connect(button, &TPushButton::Pressed, button,
                         [this](int id) { events.append(QStringLiteral("pressed %1").arg(id)); });
    }

    QImage Painted() const
    {
        QImage image(Width, Height, QImage::Format_ARGB32_Premultiplied);
        image.fill(Behind);
        button->render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        return image;
    }
    QImage Art(QString const& name) const
    {
        QImage image(Width, Height, QImage::Format_ARGB32_Premultiplied);
        image.fill(Behind);
        QPainter(&image).drawPixmap(0, 0,
                                    *stage.screen->GetPixmapManager()->GetResizedPixmap(name, Width, Height));
        return image;
    }

    TViewStage stage;
    QPointer<TNavigationButton> button;
    QStringList events;
};
} // namespace

using TPath = QList<QPoint>;
Q_DECLARE_METATYPE(TPath)

class TNavigationButtonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsItsTwoFaces()
    {
        TButtonOnBar bar;
        QCOMPARE(bar.button->size(), QSize(Width, Height));
        QCOMPARE(bar.Painted(), bar.Art(PixmapNames::NavBarButton));
        bar.button->setDown(true);
        QCOMPARE(bar.Painted(), bar.Art(PixmapNames::NavBarButtonSelected));
    }

    void theIconStandsOnTheFace_data()
    {
        QTest::addColumn<QSize>("image");
        QTest::addColumn<QPoint>("position");
        // Without an icon the place is that of one of 55 by 55.
        QTest::newRow("none") << QSize() << QPoint(2, -1);
        QTest::newRow("small") << QSize(30, 30) << QPoint(14, 11);
        QTest::newRow("odd height") << QSize(30, 31) << QPoint(14, 11);
        QTest::newRow("odd") << QSize(31, 20) << QPoint(14, 16);
        QTest::newRow("as large as the button") << QSize(63, 63) << QPoint(-2, -5);
        QTest::newRow("scaled down") << QSize(630, 300) << QPoint(-2, 11);
    }

    void theIconStandsOnTheFace()
    {
        QFETCH(QSize, image);
        QFETCH(QPoint, position);
        TButtonOnBar bar;
        if (image.isValid())
        {
            QImage picture(image, QImage::Format_ARGB32);
            picture.fill(Qt::red);
            bar.button->SetIcon(picture, QSize(-1, -1), true);
            QCOMPARE(QPoint(bar.button->GetIconLeftPosition(), bar.button->GetIconTopPosition()), position);
        }
        QCOMPARE(bar.button->GetIconPos(), position);
    }

    void aNamedIconFollowsTheButtonsSize()
    {
        TButtonOnBar bar;
        bar.button->SetIcon(QStringLiteral("icon-tick-larger"), QSize(-1, -1), true);
        QCOMPARE(bar.button->GetIconSize(), QSize(46, 46)); // the icon's own, which is smaller
        QCOMPARE(QPoint(bar.button->GetIconLeftPosition(), bar.button->GetIconTopPosition()), QPoint(6, 3));
        bar.button->setFixedSize(Width, 30);
        QCOMPARE(bar.button->GetIconSize(), QSize(30, 30));
        QCOMPARE(bar.button->GetIconPos(), QPoint(14, -5));
        QCOMPARE(QPoint(bar.button->GetIconLeftPosition(), bar.button->GetIconTopPosition()), QPoint(14, -5));
    }

    void draggedOffRight_data()
    {
        QTest::addColumn<TPath>("path");
        QTest::addColumn<QStringList>("events");
        QTest::newRow("to the edge") << TPath{{66, 30}} << QStringList{"pressed 5", "clicked 5"};
        QTest::newRow("past the edge") << TPath{{67, 30}} << QStringList{"pressed 5", "dragged 5"};
        QTest::newRow("far past it") << TPath{{67, 30}, {90, 30}, {500, 30}}
                                     << QStringList{"pressed 5", "dragged 5"};
        QTest::newRow("at one bound") << TPath{{500, 30}} << QStringList{"pressed 5", "dragged 5"};
        QTest::newRow("and back, released on the button")
            << TPath{{67, 30}, {30, 30}} << QStringList{"pressed 5", "dragged 5"};
        QTest::newRow("and back and off again")
            << TPath{{67, 30}, {30, 30}, {80, 30}} << QStringList{"pressed 5", "dragged 5"};
        QTest::newRow("beside the button, far below")
            << TPath{{30, 130}, {30, 190}, {67, 190}} << QStringList{"pressed 5", "dragged 5"};
        QTest::newRow("off the bottom only") << TPath{{30, 130}, {30, 190}} << QStringList{"pressed 5"};
        QTest::newRow("not moved") << TPath{} << QStringList{"pressed 5", "clicked 5"};
    }

    void draggedOffRight()
    {
        QFETCH(TPath, path);
        QFETCH(QStringList, events);
        TButtonOnBar bar;
        bar.stage.finger.Press({30, 30});
        bar.stage.finger.Move(path);
        bar.stage.finger.Lift();
        QCOMPARE(bar.events, events);
        QVERIFY(!bar.button->isDown());
        QCOMPARE(bar.stage.screen->m_Recorder.m_Sounds.size(),
                 events.contains(QStringLiteral("clicked 5")) ? 1 : 0);

        // The next press starts afresh.
        bar.events.clear();
        bar.stage.finger.Touch({30, 30});
        bar.stage.finger.Press({30, 30});
        bar.stage.finger.Move({80, 30});
        bar.stage.finger.Lift();
        QCOMPARE(bar.events, (QStringList{"pressed 5", "clicked 5", "pressed 5", "dragged 5"}));
    }

    void theButtonIsUpBeforeItTells()
    {
        TButtonOnBar bar;
        bool isDown = true;
        connect(bar.button, &TNavigationButton::DraggedOffRight, this,
                [&] { isDown = bar.button->isDown(); });
        bar.stage.finger.Press({30, 30});
        QVERIFY(bar.button->isDown());
        bar.stage.finger.Move({67, 30});
        QVERIFY(!isDown);
    }

    void theEdgeIsThatOfTheButton()
    {
        TButtonOnBar bar;
        bar.button->setFixedWidth(40);
        bar.stage.finger.Press({20, 30});
        bar.stage.finger.Move({39, 30});
        QCOMPARE(bar.events, (QStringList{"pressed 5"}));
        bar.stage.finger.Move({40, 30});
        QCOMPARE(bar.events, (QStringList{"pressed 5", "dragged 5"}));
    }

    void withoutAPressNothingIsDragged()
    {
        TButtonOnBar bar;
        bar.button->setMouseTracking(true);
        bar.stage.finger.Move({{30, 30}, {60, 30}, {67, 30}, {200, 30}});
        QMouseEvent beside(QEvent::MouseMove, QPointF(80, 30), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(bar.button, &beside);
        QVERIFY(bar.events.isEmpty());
    }

    void aDisabledButtonIsNotDragged()
    {
        TButtonOnBar bar;
        bar.button->setEnabled(false);
        bar.stage.finger.Press({30, 30});
        bar.stage.finger.Move({80, 30});
        bar.stage.finger.Lift();
        QVERIFY(bar.events.isEmpty());
    }

    // A bar that scrolls under the finger has taken the gesture.
    void aButtonThatMovedIsNotDragged()
    {
        TButtonOnBar bar;
        bar.stage.finger.Press({30, 30});
        bar.button->move(0, 3);
        bar.stage.finger.Move({80, 30});
        bar.stage.finger.Lift();
        QCOMPARE(bar.events, (QStringList{"pressed 5"}));
    }

    void mayBeDeletedByItsSignal()
    {
        TButtonOnBar bar;
        connect(bar.button, &TNavigationButton::DraggedOffRight, this, [&] { delete bar.button; });
        bar.stage.finger.Press({30, 30});
        bar.stage.finger.Move({{67, 30}, {80, 30}});
        bar.stage.finger.Lift();
        QVERIFY(!bar.button);
    }
};

COMMONUI_TEST(TNavigationButtonTest)
#include "TNavigationButtonTest.moc"
