#include "Palette.h"
#include "TestCase.h"

namespace
{
struct TColour
{
    char const* name;
    QColor const& value;
    QColor expected;
};

// Every colour that is named by its channels.
TColour const Colours[] = {
    {"pushButtonColor", pushButtonColor, QColor(76, 76, 76, 255)},
    {"listItemColor", listItemColor, QColor(50, 50, 50, 50)},
    {"listButtonColorGlass", listButtonColorGlass, QColor(50, 60, 140, 100)},
    {"pushButtonSelectedColor", pushButtonSelectedColor, QColor(150, 150, 150, 255)},
    {"sunkenFrameFillColor", sunkenFrameFillColor, QColor(0, 0, 0, 75)},
    {"sunkenFrameHighlightColor", sunkenFrameHighlightColor, QColor(150, 150, 150, 255)},
    {"sunkenFrameShadowColor", sunkenFrameShadowColor, QColor(0, 0, 0, 255)},
    {"LineHighLightColor", LineHighLightColor, QColor(255, 255, 255, 130)},
    {"LineLowLightColor", LineLowLightColor, QColor(0, 0, 0, 160)},
    {"clearColor", clearColor, QColor(0, 0, 0, 0)},
    {"regularTextColor", regularTextColor, QColor(255, 255, 255, 255)},
    {"regularTextColorTransparent", regularTextColorTransparent, QColor(255, 255, 255, 52)},
    {"regularLabelTextColor", regularLabelTextColor, QColor(200, 200, 200, 255)},
    {"hintTextColor", hintTextColor, QColor(255, 0, 0, 255)},
    {"regularButtonTextColor", regularButtonTextColor, QColor(255, 255, 255, 255)},
    {"editTextColor", editTextColor, QColor(0, 0, 0, 255)},
    {"statusWindowColor", statusWindowColor, QColor(255, 255, 255, 150)},
    {"alternatingRowColor", alternatingRowColor, QColor(255, 255, 255, 32)},
    {"alarmInformationColor", alarmInformationColor, QColor(0, 138, 65, 255)},
    {"alarmCautionColor", alarmCautionColor, QColor(208, 189, 43, 255)},
    {"alarmWarningColor", alarmWarningColor, QColor(217, 125, 30, 255)},
    {"alarmCriticalColor", alarmCriticalColor, QColor(207, 26, 34, 255)},
    {"alarmEngageColor", alarmEngageColor, QColor(32, 134, 177, 255)},
    {"statusGoodColor", statusGoodColor, QColor(35, 70, 41, 255)},
    {"statusDegradedColor", statusDegradedColor, QColor(35, 100, 100, 255)},
    {"statusCautionColor", statusCautionColor, QColor(180, 100, 41, 255)},
    {"statusBadColor", statusBadColor, QColor(150, 0, 0, 255)},
    {"statusUnknownColor", statusUnknownColor, QColor(70, 70, 70, 255)},
    {"modalFadeoutColor", modalFadeoutColor, QColor(0, 0, 0, 128)},
    {"modalEditColor", modalEditColor, QColor(0, 0, 0, 128)},
    {"DashboardPrimaryTextColor", DashboardPrimaryTextColor, QColor(255, 255, 255, 255)},
    {"DashboardSecondaryTextColor", DashboardSecondaryTextColor, QColor(204, 204, 204, 255)},
    {"DashboardUnitsTextColor", DashboardUnitsTextColor, QColor(120, 120, 120, 255)},
    {"DashboardHighlightFrameColor", DashboardHighlightFrameColor, QColor(153, 153, 153, 255)},
    {"DashboardLowlightFrameColor", DashboardLowlightFrameColor, QColor(0, 0, 0, 255)},
    {"DashboardFrameColor", DashboardFrameColor, QColor(0, 0, 0, 120)},
    {"LineDisabledColor", LineDisabledColor, QColor(150, 150, 150, 255)},
    {"LineOffColor", LineOffColor, QColor(60, 60, 60, 255)},
    {"SectionOffColor", SectionOffColor, QColor(255, 0, 0, 255)},
    {"SectionInhibitedColor", SectionInhibitedColor, QColor(0, 0, 255, 255)},
    {"SectionNoFlowColor", SectionNoFlowColor, QColor(255, 255, 0, 255)},
    {"SectionFlowingColor", SectionFlowingColor, QColor(144, 238, 144, 255)},
    {"SectionASCFlowDifferColor", SectionASCFlowDifferColor, QColor(255, 165, 0, 255)},
    {"NoCommsColor", NoCommsColor, QColor(128, 128, 128, 255)},
    {"SwitchBoxDarkTextColor", SwitchBoxDarkTextColor, QColor(0, 0, 0, 255)},
    {"SwitchBoxLightTextColor", SwitchBoxLightTextColor, QColor(255, 255, 255, 255)},
    {"ActiveBoomIndicatorColor", ActiveBoomIndicatorColor, QColor(255, 255, 255, 255)},
    {"MainTankFluidColor", MainTankFluidColor, QColor(1, 169, 250, 255)},
    {"ChemInjTankFluidColor", ChemInjTankFluidColor, QColor(150, 90, 250, 255)},
    {"LowVolumeTankFluidColor", LowVolumeTankFluidColor, QColor(212, 104, 85, 255)},
    {"LowVolumeEmptyPartOfTankColor", LowVolumeEmptyPartOfTankColor, QColor(75, 0, 0, 128)},
    {"EmptyTankColor", EmptyTankColor, QColor(0, 0, 0, 128)},
    {"LevelMeterBarColor", LevelMeterBarColor, QColor(120, 120, 120, 255)},
    {"MainViewHighlightFrameColor", MainViewHighlightFrameColor, QColor(153, 153, 153, 255)},
    {"MainViewLowlightFrameColor", MainViewLowlightFrameColor, QColor(60, 60, 60, 255)},
    {"MainViewFrameColor", MainViewFrameColor, QColor(0, 0, 0, 0)},
    {"USBFileListButtonColor", USBFileListButtonColor, QColor(32, 46, 78, 255)},
    {"InvalidAsAppliedMapRangeColor", InvalidAsAppliedMapRangeColor, QColor(100, 0, 0, 128)},
    {"UpperBoundAsAppliedMapColor", UpperBoundAsAppliedMapColor, QColor(100, 225, 250, 255)},
    {"LowerBoundAsAppliedMapColor", LowerBoundAsAppliedMapColor, QColor(99, 129, 135, 255)},
    {"InvalidGPSQualityRangeColor", InvalidGPSQualityRangeColor, QColor(100, 0, 0, 128)},
    {"UpperBoundGPSQualityColor", UpperBoundGPSQualityColor, QColor(255, 128, 0, 255)},
    {"LowerBoundGPSQualityColor", LowerBoundGPSQualityColor, QColor(154, 128, 101, 255)},
    {"ToolTipTextColor", ToolTipTextColor, QColor(0, 0, 0, 255)},
    {"SwathColor", SwathColor, QColor(80, 0, 0, 255)},
    {"ReverseStationIndicatorColor", ReverseStationIndicatorColor, QColor(255, 0, 0, 200)},
};
} // namespace

class PaletteTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void coloursAreTheShippedOnes()
    {
        for (TColour const& colour : Colours)
            QVERIFY2(colour.value == colour.expected, colour.name);
    }

    void aDisabledTankIsTheToolkitsGray() { QCOMPARE(DisabledTankFluidColor, QColor(Qt::gray)); }

    void theLocalFileListColourIsInvalidOnPurpose() { QVERIFY(!LocalFileListColor.isValid()); }
};

COMMONUI_TEST(PaletteTest)
#include "PaletteTest.moc"
