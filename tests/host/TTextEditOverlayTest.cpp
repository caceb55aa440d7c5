#include "TestCase.h"
#include "TFinger.h"
#include "TKeyboard.h"
#include "TPushButton.h"
#include "TStackStage.h"
#include "TTextEditWidget.h"

#include <QLineEdit>
#include <QSignalSpy>

namespace
{
/// A console with a control on a page that opens an editor of its own.
struct TStage : TStackStage
{
    TStage()
        : page(new QWidget(Screen()))
        , source(new TPushButton(page, QString(), QSize(200, 60), QPoint(40, 30), 1, QString()))
        , editor(new TTextEditWidget(source))
        , finger(Screen())
    {
        page->setGeometry(150, 50, 600, 300);
        page->show();
        source->setGeometry(40, 30, 200, 60);
        editor->SetPosition(source, {});
        editor->SetValue(QStringLiteral("North field"));
    }
    ~TStage() { delete page.data(); }
    TStage(TStage const&) = delete;
    TStage& operator=(TStage const&) = delete;

    TKeyboard* Keyboard() const { return Screen()->GetKeyboard(); }
    QWidget* Value() const { return editor->findChild<TPushButton*>(QString(), Qt::FindDirectChildrenOnly); }
    bool IsUp() const
    {
        return editor && editor->isVisible() && editor->parentWidget() == Screen() &&
               editor->geometry() == Screen()->rect() && Keyboard()->isVisible() && Locks().size() == 1;
    }
    /// No lock is left, and the keyboard is the screen's own again.
    bool IsDown() const
    {
        return Locks().isEmpty() && Keyboard() && Keyboard()->isHidden() && !Keyboard()->parentWidget();
    }

    QPointer<QWidget> page;
    QPointer<TPushButton> source;
    QPointer<TTextEditWidget> editor;
    TFinger finger;
};
} // namespace

/// The editor of texts on the host's own layer of annotations.
class TTextEditOverlayTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void coversTheConsoleUntilItIsConfirmed()
    {
        TStage stage;
        QSignalSpy const texts(stage.editor.data(), &TTextEditWidget::NewText);
        stage.editor->Open();
        QVERIFY(stage.IsUp());
        QCOMPARE(TScreenLayers(*stage.Screen()).Fault(), QString());
        stage.Keyboard()->ClickOk();
        QTRY_COMPARE(texts.count(), 1);
        QVERIFY(stage.IsDown());
        QCOMPARE(stage.editor->parentWidget(), static_cast<QWidget*>(stage.source));
        QVERIFY(stage.editor->isHidden());
    }

    void comesAndGoesWithItsPage()
    {
        TStage stage;
        stage.editor->Open();
        stage.editor->findChild<QLineEdit*>()->setText(QStringLiteral("typed"));
        for (int time = 0; time < 2; ++time)
        {
            stage.page->hide();
            QVERIFY(stage.IsDown());
            stage.page->show();
            QCoreApplication::processEvents();
            QVERIFY(stage.IsUp());
            QCOMPARE(stage.editor->findChild<QLineEdit*>()->text(), QStringLiteral("typed"));
        }
    }

    void followsItsPage()
    {
        TStage stage;
        stage.editor->Open();
        stage.page->move(200, 100);
        QCoreApplication::processEvents();
        QCOMPARE(stage.Value()->geometry(), QRect(239, 129, 202, 62));
    }

    void aSourceThatDiesTakesItAlong()
    {
        TStage stage;
        stage.editor->Open();
        delete stage.source;
        QVERIFY(!stage.editor);
        QVERIFY(stage.IsDown());
    }

    void theSecondEditorSendsTheFirstAway()
    {
        TStage stage;
        QSignalSpy const cancelled(stage.editor.data(), &TTextEditWidget::Cancel);
        TTextEditWidget second(nullptr);
        stage.editor->Open();
        second.Open();
        QVERIFY(second.isVisible());
        QVERIFY(!stage.editor->isVisible());
        QCOMPARE(stage.Locks(), QList<QWidget*>{&second});
        QTRY_COMPARE(cancelled.count(), 1);
        second.Close();
        QVERIFY(stage.IsDown());
    }

    void anotherSourceLeavesTheLayersInOrder()
    {
        TStage stage;
        stage.editor->Open();
        stage.editor->SetPosition(stage.page.data(), {});
        stage.editor->Open();
        QVERIFY(stage.IsUp());
        QCOMPARE(TScreenLayers(*stage.Screen()).Fault(), QString());
    }

    void deletedByTheSlotThatTakesItsText()
    {
        TStage stage;
        connect(stage.editor.data(), &TTextEditWidget::NewText, this, [&stage] { delete stage.source; });
        stage.editor->Open();
        stage.Keyboard()->ClickOk();
        QTRY_VERIFY(!stage.editor);
        QVERIFY(stage.IsDown());
    }
};

COMMONUI_TEST(TTextEditOverlayTest)
#include "TTextEditOverlayTest.moc"
