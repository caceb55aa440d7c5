#include "TExpandingCollapsingBlock.h"
#include "GoldenPicture.h"
#include "Palette.h"
#include "TestCase.h"
#include "TestScreen.h"
#include "TFinger.h"
#include "TPushButton.h"

#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QSignalSpy>
#include <QVBoxLayout>

#include <functional>

namespace
{
using TBlock = TExpandingCollapsingBlock;

/// Runs something when it is shown.
class TGreeter : public QWidget
{
public:
    std::function<void()> onShow;

protected:
    void showEvent(QShowEvent*) override
    {
        if (onShow)
            onShow();
    }
};

/// A block of 300 by 240 in a shown window, which stands at (20, 30).
struct TStage
{
    explicit TStage(TBlock::State state = TBlock::STATE_EXPANDED)
        : block(new TBlock(&window, state))
        , finger(&window)
    {
        window.resize(400, 300);
        window.setPalette(QPalette(QColor(38, 41, 46)));
        block->setGeometry(20, 30, 300, 240);
        window.show();
    }

    QWidget* Add(int height = 30)
    {
        auto* const widget = new QWidget;
        widget->setFixedHeight(height);
        block->AddWidget(widget);
        return widget;
    }
    TPushButton* Button() const { return block->findChild<TPushButton*>(); }
    void Click() { finger.Touch(Button()); }
    /// The widgets of the block from the top.
    QVector<QWidget*> Widgets() const
    {
        QVector<QWidget*> widgets;
        for (int i = 1; i < block->layout()->count(); ++i)
            widgets.append(block->layout()->itemAt(i)->widget());
        return widgets;
    }
    /// The block as it stands, the layout's work done.
    QImage Picture()
    {
        block->layout()->activate();
        return window.grab(QRect(0, 0, 340, 300)).toImage().convertToFormat(QImage::Format_RGB32);
    }

    TTestScreen screen;
    QWidget window;
    QPointer<TBlock> block;
    TFinger finger;
};

QImage Face(TPushButton& button)
{
    QImage face(button.size(), QImage::Format_ARGB32_Premultiplied);
    face.fill(Qt::transparent);
    button.render(&face, QPoint(), QRegion(), QWidget::RenderFlags());
    return face;
}

/// The details button by itself with one of the two marks.
QImage ButtonWith(QString const& mark)
{
    TPushButton button(nullptr, QString(), QSize(240, 50), QPoint(), 0, QString());
    button.resize(240, 50);
    button.SetRightSideIcon(mark);
    return Face(button);
}
} // namespace

class TExpandingCollapsingBlockTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsInTheStateAskedFor_data()
    {
        QTest::addColumn<bool>("expanded");
        QTest::newRow("expanded") << true;
        QTest::newRow("collapsed") << false;
    }

    void startsInTheStateAskedFor()
    {
        QFETCH(bool, expanded);
        TStage stage(expanded ? TBlock::STATE_EXPANDED : TBlock::STATE_COLLAPSED);
        QWidget* const added = stage.Add();
        auto* const inserted = new QWidget;
        stage.block->InsertWidget(0, inserted);
        QCOMPARE(added->isVisible(), expanded);
        QCOMPARE(inserted->isVisible(), expanded);
        QVERIFY(stage.Button()->isVisible());
    }

    void clickShowsAndHidesTheWidgets()
    {
        TStage stage;
        QWidget* const first = stage.Add();
        QWidget* const second = stage.Add();
        stage.Click();
        QVERIFY(!first->isVisible());
        QVERIFY(!second->isVisible());
        QVERIFY(stage.Button()->isVisible());
        stage.Click();
        QVERIFY(first->isVisible());
        QVERIFY(second->isVisible());
    }

    void onlyAClickTurnsTheBlock()
    {
        TStage stage;
        QWidget* const widget = stage.Add();
        QPoint const place = stage.Button()->mapTo(&stage.window, QPoint(30, 20));
        stage.finger.Press(place);
        QVERIFY(widget->isVisible());
        stage.finger.Move(place + QPoint(0, 200));
        stage.finger.Lift();
        QVERIFY(widget->isVisible());
        stage.finger.Press(place);
        stage.finger.Lift();
        QVERIFY(!widget->isVisible());
    }

    void signalComesBeforeTheChange()
    {
        TStage stage;
        QWidget* const widget = stage.Add();
        QStringList heard;
        auto const note = [&](QString const& name)
        { heard += name + (widget->isVisible() ? QStringLiteral(" shown") : QStringLiteral(" hidden")); };
        connect(stage.block, &TBlock::AboutToCollapse, this, [&] { note(QStringLiteral("collapse")); });
        connect(stage.block, &TBlock::AboutToExpand, this, [&] { note(QStringLiteral("expand")); });
        stage.Click();
        stage.Click();
        QCOMPARE(heard, QStringList({QStringLiteral("collapse shown"), QStringLiteral("expand hidden")}));
    }

    void blockMayBeFilledWhenItExpands()
    {
        TStage stage(TBlock::STATE_COLLAPSED);
        QPointer<QWidget> late;
        connect(stage.block, &TBlock::AboutToExpand, this, [&] { late = stage.Add(); });
        stage.block->OnShowContainingBlock(7);
        QVERIFY(late->isVisible());
    }

    void markTellsWhatAClickDoes()
    {
        TStage stage;
        QImage const collapse = ButtonWith(QStringLiteral("Collapse"));
        QImage const expand = ButtonWith(QStringLiteral("Expand"));
        QVERIFY(collapse != expand);
        QVERIFY(collapse != ButtonWith(QString()));
        QCOMPARE(Face(*stage.Button()), collapse);
        stage.Click();
        QCOMPARE(Face(*stage.Button()), expand);
        stage.Click();
        QCOMPARE(Face(*stage.Button()), collapse);
        TStage const collapsed(TBlock::STATE_COLLAPSED);
        QCOMPARE(Face(*collapsed.Button()), expand);
    }

    void widgetsStandBelowTheButton()
    {
        TStage stage;
        QWidget* const first = stage.Add(30);
        QWidget* const second = stage.Add(40);
        stage.block->layout()->activate();
        QCOMPARE(stage.Button()->geometry(), QRect(10, 10, 240, 50));
        QCOMPARE(stage.block->layout()->contentsMargins(), QMargins(10, 10, 10, 20));
        QCOMPARE(first->x(), 10);
        QCOMPARE(first->width(), 280);
        QVERIFY(first->y() >= 60);
        QVERIFY(second->y() >= first->y() + 30);
        QVERIFY(second->y() + 40 <= 220);
        QCOMPARE(stage.block->layout()->itemAt(1)->alignment(), Qt::AlignTop);
    }

    void hiddenWidgetsTakeNoRoom()
    {
        TStage stage;
        stage.Add(70);
        int const spacing = stage.block->layout()->spacing();
        QCOMPARE(stage.block->sizeHint(), QSize(260, 10 + 50 + spacing + 70 + 20));
        stage.Click();
        QCOMPARE(stage.block->sizeHint(), QSize(260, 10 + 50 + 20));
    }

    void widgetsAreInsertedByTheirNumber()
    {
        TStage stage;
        QWidget* const first = stage.Add();
        QWidget* const last = stage.Add();
        auto* const front = new QWidget;
        auto* const middle = new QWidget;
        auto* const end = new QWidget;
        stage.block->InsertWidget(0, front);
        stage.block->InsertWidget(2, middle);
        stage.block->InsertWidget(4, end);
        QCOMPARE(stage.Widgets(), QVector<QWidget*>({front, first, middle, last, end}));
        // One that is in already moves.
        stage.block->InsertWidget(0, end);
        QCOMPARE(stage.Widgets(), QVector<QWidget*>({end, front, first, middle, last}));
        stage.block->AddWidget(end);
        QCOMPARE(stage.Widgets(), QVector<QWidget*>({front, first, middle, last, end}));
    }

    void whatCannotBeInIsLeftOut()
    {
        TStage stage;
        QWidget* const only = stage.Add();
        QWidget stranger;
        for (int const index : {-1, 2, INT_MIN, INT_MAX})
            stage.block->InsertWidget(index, &stranger);
        for (QWidget* const widget : {static_cast<QWidget*>(nullptr), static_cast<QWidget*>(stage.block),
                                      &stage.window, static_cast<QWidget*>(stage.Button())})
        {
            stage.block->AddWidget(widget);
            stage.block->InsertWidget(0, widget);
        }
        QCOMPARE(stage.Widgets(), QVector<QWidget*>{only});
        QVERIFY(!stranger.parentWidget());
        QCOMPARE(stage.block->layout()->itemAt(0)->widget(), stage.Button());
    }

    void frameRunsBehindTheMiddleOfTheButton()
    {
        TStage stage;
        QImage picture(300, 240, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        stage.block->layout()->activate();
        stage.block->render(&picture, QPoint(), QRegion(), QWidget::RenderFlags());
        QImage expected(300, 240, QImage::Format_ARGB32_Premultiplied);
        expected.fill(Qt::transparent);
        QPainter painter(&expected);
        // 5 left of the button, 35 down, 9 narrower than the block; 4 stay free at the right and below.
        QRect const frame(5, 35, 291, 201);
        painter.fillRect(QRect(frame.left(), frame.top(), 291, 1), sunkenFrameShadowColor);
        painter.fillRect(QRect(frame.left(), frame.top(), 1, 201), sunkenFrameShadowColor);
        painter.fillRect(QRect(frame.right(), frame.top() + 1, 1, 199), sunkenFrameHighlightColor);
        painter.fillRect(QRect(frame.left() + 1, frame.bottom(), 289, 1), sunkenFrameHighlightColor);
        painter.end();
        for (QPoint const& corner : {frame.topRight(), frame.bottomLeft(), frame.bottomRight()})
        {
            QVERIFY(picture.pixelColor(corner).alpha() == 255);
            picture.setPixelColor(corner, Qt::transparent);
            expected.setPixelColor(corner, Qt::transparent);
        }
        QCOMPARE(picture, expected);
    }

    void pictureOfBothStates()
    {
        TStage stage;
        stage.block->SetDetailsButtonText(QStringLiteral("Section valves"), QString());
        stage.block->SetDetailsButtonIcon(QStringLiteral("icon-section-on"));
        for (auto const* const text : {"Valve 1", "Valve 2"})
            stage.block->AddWidget(new QLabel(QLatin1String(text)));
        auto const labels = stage.block->findChildren<QLabel*>();
        for (QLabel* const label : labels)
            label->setStyleSheet(QStringLiteral("font: 16px 'DejaVu Sans'; color: white"));
        COMPARE_PICTURE(stage.Picture(), "block-expanded");
        stage.Click();
        COMPARE_PICTURE(stage.Picture(), "block-collapsed");
    }

    void detailsButtonIsDressed()
    {
        TStage stage;
        stage.block->SetDetailsButtonText(QStringLiteral("Pumps"), QStringLiteral("two of three"));
        stage.block->SetDetailsButtonToolTip(QStringLiteral("Shows the pumps"));
        stage.block->SetDetailsButtonIcon(QStringLiteral("icon-tank"));
        TPushButton const* const button = stage.Button();
        QCOMPARE(button->GetText(), QStringLiteral("Pumps"));
        QCOMPARE(button->GetSecondLine(), QStringLiteral("two of three"));
        QRect const upper = button->GetFirstLineRect();
        QCOMPARE(button->GetToolTip(), QStringLiteral("Shows the pumps"));
        QCOMPARE(button->GetIconSize(), QSize(42, 42));
        QCOMPARE(button->GetIconLeftPosition(), 10);
        QCOMPARE(button->GetIconTopPosition(), 0);
        stage.block->SetDetailsButtonText(QStringLiteral("Pumps"), QString());
        QVERIFY(button->GetFirstLineRect().bottom() > upper.bottom());
        stage.block->SetDetailsButtonIcon(QString());
        QVERIFY(button->GetIconSize().isEmpty());
    }

    void textNamesTheButtonForMacroPaths()
    {
        TStage stage;
        stage.block->SetDetailsButtonText(QStringLiteral("Pumps"), QString());
        QCOMPARE(stage.Button()->objectName(), QStringLiteral("Pumps"));
    }

    void disabledButtonStaysDisabled()
    {
        TStage stage;
        stage.Button()->setEnabled(false);
        stage.block->SetDetailsButtonText(QStringLiteral("Pumps"), QString());
        stage.block->SetDetailsButtonIcon(QStringLiteral("icon-tank"));
        QVERIFY(!stage.Button()->isEnabled());
    }

    void updatesAreSwitchedAndAskedFor()
    {
        TStage stage;
        QSignalSpy asked(stage.block, &TBlock::enableUpdates);
        stage.block->ToggleUpdates(false);
        QVERIFY(!stage.block->updatesEnabled());
        stage.block->EmitEnableUpdates();
        QCOMPARE(asked.count(), 1);
        QVERIFY(!stage.block->updatesEnabled());
        stage.block->ToggleUpdates(true);
        QVERIFY(stage.block->updatesEnabled());
    }

    void deletedWidgetDropsOut()
    {
        TStage stage;
        QWidget* const first = stage.Add();
        QWidget* const second = stage.Add();
        delete first;
        QCOMPARE(stage.Widgets(), QVector<QWidget*>{second});
        stage.Click();
        QVERIFY(!second->isVisible());
        TStage other;
        other.block->AddWidget(second);
        QVERIFY(stage.Widgets().isEmpty());
        QVERIFY(second->isVisible());
    }

    void widgetThatIsShownMayTakeOthersAway()
    {
        TStage stage(TBlock::STATE_COLLAPSED);
        auto* const greeter = new TGreeter;
        stage.block->AddWidget(greeter);
        QPointer<QWidget> const next(stage.Add());
        QPointer<QWidget> const last(stage.Add());
        greeter->onShow = [&]
        {
            delete next;
            delete last;
        };
        stage.Click();
        QVERIFY(!next);
        QCOMPARE(stage.Widgets(), QVector<QWidget*>{greeter});
    }

    void slotMayDeleteTheBlock_data()
    {
        QTest::addColumn<bool>("expands");
        QTest::newRow("when it expands") << true;
        QTest::newRow("when it collapses") << false;
    }

    void slotMayDeleteTheBlock()
    {
        QFETCH(bool, expands);
        TStage stage(expands ? TBlock::STATE_COLLAPSED : TBlock::STATE_EXPANDED);
        connect(stage.block, expands ? &TBlock::AboutToExpand : &TBlock::AboutToCollapse, this,
                [&] { delete stage.block; });
        stage.Click();
        QVERIFY(!stage.block);
    }

    void deletedWhilePressed()
    {
        TStage stage;
        QPointer<QWidget> const widget(stage.Add());
        stage.finger.Press(QPoint(60, 60));
        delete stage.block;
        stage.finger.Lift();
        QVERIFY(!widget);
    }
};

COMMONUI_TEST(TExpandingCollapsingBlockTest)
#include "TExpandingCollapsingBlockTest.moc"
