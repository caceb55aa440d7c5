#include "GoldenPicture.h"
#include "TAnnotatingPlatform.h"
#include "TEditButton.h"
#include "TEditItem.h"
#include "TEditWidget.h"
#include "TestCase.h"
#include "TestScreen.h"
#include "TFinger.h"

namespace
{
/// A page with a button whose value is edited.
class TEditLookStage
{
public:
    explicit TEditLookStage(TEditItem item)
        : panel(screen.get())
        , button(&panel)
    {
        panel.setGeometry(screen->rect());
        panel.setAutoFillBackground(true);
        panel.setPalette(QPalette(QColor(70, 90, 80)));
        button.move(200, 150);
        button.SetProperties(&item);
        panel.show();
    }

    void Open()
    {
        button.click();
        QCoreApplication::processEvents();
    }
    QImage Picture(QRect const& part)
    {
        return screen->grab(part).toImage().convertToFormat(QImage::Format_RGB32);
    }

    TTestScreen screen;
    TAnnotatingPlatform platform;
    QWidget panel;
    TEditButton button;
};

TEditItem Nozzles(int count)
{
    static char const* const names[] = {"Flat fan 110-02", "Flat fan 110-03", "Hollow cone", "Twin jet",
                                        "Air induction",   "Flood",           "Boundary",    "Off"};
    TEditItem item;
    item.kind = EDIT_KIND_TEXT_LIST;
    item.SetMinMaxInc(0, count - 1, 1);
    for (int i = 0; i < count; ++i)
        item.textItems.setAt(i, QLatin1String(names[i]));
    item.value = 2;
    return item;
}

TEditItem Speed()
{
    TEditItem item;
    item.SetMinMaxInc(0, 100, 1);
    item.value = 12;
    item.unitType = UNIT_TYPE_SPEED;
    item.decimalPlaces = 1;
    item.floatingButtons = true;
    return item;
}
} // namespace

/// What an edit over a button looks like.
class TEditWidgetLookTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aListBesideItsValue();
    void aListOfSeveralWithItsTitle();
    void plusAndMinusWithOkAndCancel();
    void aPadWithPlusMinusAndUnits();
    void aPadInTheMiddle();
};

void TEditWidgetLookTest::aListBesideItsValue()
{
    TEditLookStage stage(Nozzles(5));
    stage.Open();
    COMPARE_PICTURE(stage.Picture(QRect(180, 110, 400, 420)), "edit-list");
}

void TEditWidgetLookTest::aListOfSeveralWithItsTitle()
{
    TEditItem item = Nozzles(8);
    item.multiSelect = true;
    item.showSelection = true;
    TEditLookStage stage(item);
    TEditWidget* const widget = stage.button.GetEditWidget();
    widget->SetTitle(QStringLiteral("Nozzles at the left and the right boom"));
    widget->SelectTextItem(5, true);
    widget->SetPosition(&stage.button, QSize(320, 450));
    stage.Open();
    widget->SetPosition(&stage.button, QSize(320, 450));
    COMPARE_PICTURE(stage.Picture(QRect(180, 70, 460, 500)), "edit-list-title");
}

void TEditWidgetLookTest::plusAndMinusWithOkAndCancel()
{
    TEditItem item = Speed();
    item.value = 100;
    TEditLookStage stage(item);
    stage.Open();
    COMPARE_PICTURE(stage.Picture(QRect(180, 110, 300, 180)), "edit-steps");
}

void TEditWidgetLookTest::aPadWithPlusMinusAndUnits()
{
    TEditItem item = Speed();
    item.useNumberPad = true;
    item.unitsSelector.units = {{UNIT_KILOMETRES_PER_HOUR, 1}, {UNIT_MILES_PER_HOUR, 1}};
    TEditLookStage stage(item);
    stage.button.setFixedSize(240, 50);
    stage.Open();
    COMPARE_PICTURE(stage.Picture(QRect(180, 110, 460, 450)), "edit-pad-units");
}

void TEditWidgetLookTest::aPadInTheMiddle()
{
    TEditItem item = Speed();
    item.useNumberPad = true;
    item.inlineNumberPad = true;
    TEditLookStage stage(item);
    stage.Open();
    COMPARE_PICTURE(stage.Picture(QRect(180, 110, 700, 520)), "edit-pad-inline");
}

COMMONUI_TEST(TEditWidgetLookTest)
#include "TEditWidgetLookTest.moc"
