#include "PixmapNames.h"

namespace PixmapNames
{
QString const NewStandardButton = QStringLiteral("NewStandardButton");
QString const NewStandardButtonSelected = QStringLiteral("NewStandardButtonSelected");
QString const NewDisabledButton = QStringLiteral("NewDisabledButton");
QString const NewStandardButtonClear = QStringLiteral("NewStandardButtonClear");
QString const NewStandardButtonClearSelected = QStringLiteral("NewStandardButtonClearSelected");
QString const NewGreenButton = QStringLiteral("NewGreenButton");
QString const NewGreenButtonSelected = QStringLiteral("NewGreenButtonSelected");
QString const NewRedButton = QStringLiteral("NewRedButton");
QString const NewRedButtonSelected = QStringLiteral("NewRedButtonSelected");
QString const NewBlueButton = QStringLiteral("NewBlueButton");
QString const NewBlueButtonSelected = QStringLiteral("NewBlueButtonSelected");
QString const NewYellowButton = QStringLiteral("NewYellowButton");
QString const NewYellowButtonSelected = QStringLiteral("NewYellowButtonSelected");
QString const NewOrangeButton = QStringLiteral("NewOrangeButton");
QString const NewOrangeButtonSelected = QStringLiteral("NewOrangeButtonSelected");
QString const ButtonBlank = QStringLiteral("button-blank");
QString const StandardButtonSelected = QStringLiteral("StandardButtonSelected");
QString const ButtonDisabled = QStringLiteral("button-disabled");
QString const ButtonGreenUp = QStringLiteral("button-green-up");
QString const GreenButtonSelected = QStringLiteral("GreenButtonSelected");
QString const ButtonRedUp = QStringLiteral("button-red-up");
QString const RedButtonSelected = QStringLiteral("RedButtonSelected");
QString const ButtonBlueUp = QStringLiteral("button-blue-up");
QString const ButtonPlus = QStringLiteral("button-plus");
QString const ButtonMinus = QStringLiteral("button-minus");
QString const BlueButtonSelected = QStringLiteral("BlueButtonSelected");
QString const CompactButton = QStringLiteral("CompactButton");
QString const CompactButtonSelected = QStringLiteral("CompactButtonSelected");
QString const CompactButtonDisabled = QStringLiteral("CompactButtonDisabled");
QString const CompactButtonGreen = QStringLiteral("CompactButtonGreen");
QString const CompactButtonGreenSelected = QStringLiteral("CompactButtonGreenSelected");
QString const CompactButtonRed = QStringLiteral("CompactButtonRed");
QString const CompactButtonRedSelected = QStringLiteral("CompactButtonRedSelected");
QString const CompactButtonBlue = QStringLiteral("CompactButtonBlue");
QString const CompactButtonBlueSelected = QStringLiteral("CompactButtonBlueSelected");
QString const CompactButtonYellow = QStringLiteral("CompactButtonYellow");
QString const CompactButtonYellowSelected = QStringLiteral("CompactButtonYellowSelected");
QString const SetupTaskButton = QStringLiteral("SetupTaskButton");
QString const SetupTaskButtonSelected = QStringLiteral("SetupTaskButtonSelected");
QString const SetupTaskButtonDisabled = QStringLiteral("SetupTaskButtonDisabled");
QString const BevelButton = QStringLiteral("BevelButton");
QString const BevelButtonSelected = QStringLiteral("BevelButtonSelected");
QString const ModalFieldSelected = QStringLiteral("modal-field--selected");
QString const KeyboardInputField = QStringLiteral("keyboard-input-field");
QString const KeyboardBackground = QStringLiteral("KeyboardBackground");
QString const PanelWindowTitlebar = QStringLiteral("PanelWindowTitlebar");
QString const PanelWindowTitlebarSelected = QStringLiteral("PanelWindowTitlebarSelected");
QString const PanelWindowTitlebarMaximized = QStringLiteral("PanelWindowTitlebarMaximized");
QString const PanelWindowTitlebarMaximizedSelected = QStringLiteral("PanelWindowTitlebarMaximizedSelected");
QString const PanelWindowTitlebarFixedSize = QStringLiteral("PanelWindowTitlebarFixedSize");
QString const OptionButton = QStringLiteral("OptionButton");
QString const OptionButtonSelected = QStringLiteral("OptionButtonSelected");
QString const WindowToolbarButton = QStringLiteral("WindowToolbarButton");
QString const WindowToolbarButtonSelected = QStringLiteral("WindowToolbarButtonSelected");
QString const WindowToolbarButtonHighlight = QStringLiteral("WindowToolbarButtonHighlight");
QString const WindowToolbarButtonHighlightSelected = QStringLiteral("WindowToolbarButtonHighlightSelected");
QString const ShortcutButton = QStringLiteral("ShortcutButton");
QString const ShortcutButtonSelected = QStringLiteral("ShortcutButtonSelected");
QString const ListItem = QStringLiteral("ListItem");
QString const ListItemSelected = QStringLiteral("ListItemSelected");
QString const ScrollBarHandle = QStringLiteral("ScrollBarHandle");
QString const ScrollBarHandleSelected = QStringLiteral("ScrollBarHandleSelected");
QString const ScrollBarBackground = QStringLiteral("ScrollBarBackground");
QString const ScrollBarGrip = QStringLiteral("ScrollBarGrip");
QString const GlassScrollBarHandle = QStringLiteral("GlassScrollBarHandle");
QString const GlassScrollBarHandleSelected = QStringLiteral("GlassScrollBarHandleSelected");
QString const GlassScrollBarBackground = QStringLiteral("GlassScrollBarBackground");
QString const GlassScrollBarGrip = QStringLiteral("GlassScrollBarGrip");
QString const ListInteractiveEntrySelected = QStringLiteral("list-interactive-entry-selected");
QString const DashboardHorizontalSection = QStringLiteral("dashboard-horizontal-section");
QString const DashboardHorizontalSectionSelected = QStringLiteral("dashboard-horizontal-section-selected");
QString const DashboardHorizontalCap = QStringLiteral("dashboard-horizontal-cap");
QString const DashboardHorizontalCapSelected = QStringLiteral("dashboard-horizontal-cap-selected");
QString const DashButtonWhite = QStringLiteral("dash-button-white");
QString const DashButtonWhiteDown = QStringLiteral("dash-button-white-down");
QString const DashButtonGreen = QStringLiteral("dash-button-green");
QString const DashButtonGreenDown = QStringLiteral("dash-button-green-down");
QString const DashButtonOrange = QStringLiteral("dash-button-orange");
QString const DashButtonOrangeDown = QStringLiteral("dash-button-orange-down");
QString const DashButtonRed = QStringLiteral("dash-button-red");
QString const DashButtonRedDown = QStringLiteral("dash-button-red-down");
QString const DashButtonYellow = QStringLiteral("dash-button-yellow");
QString const DashButtonYellowDown = QStringLiteral("dash-button-yellow-down");
QString const DashButtonBlue = QStringLiteral("dash-button-blue");
QString const DashButtonBlueDown = QStringLiteral("dash-button-blue-down");
QString const DashboardGauge = QStringLiteral("DashboardGauge");
QString const DatablockHorizontalSectionSelected = QStringLiteral("datablock-horizontal-section-selected");
QString const ToolTipMark = QStringLiteral("ToolTipMark");
QString const ToolTipMarkSelected = QStringLiteral("ToolTipMarkSelected");
QString const TableInteractiveEntrySelected = QStringLiteral("table-interactive-entry-selected");
QString const TableInteractiveEntryMarked = QStringLiteral("table-interactive-entry-marked");
QString const TableButton = QStringLiteral("TableButton");
QString const TableButtonGlass = QStringLiteral("TableButtonGlass");
QString const TableInteractiveEntryRed = QStringLiteral("table-interactive-entry-red");
QString const TableInteractiveEntryGreen = QStringLiteral("table-interactive-entry-green");
QString const ModalInputWindow = QStringLiteral("modal-inputWindow");
QString const CompactKeyboardFrame = QStringLiteral("CompactKeyboardFrame");
QString const PopupWindowBackground = QStringLiteral("PopupWindowBackground");
QString const PopupWindowBackgroundRed = QStringLiteral("PopupWindowBackgroundRed");
QString const TaskWindowNoShadow = QStringLiteral("TaskWindowNoShadow");
QString const TaskWindowNoTitlebarNoShadow = QStringLiteral("TaskWindowNoTitlebarNoShadow");
QString const TaskWindowUSBNoShadow = QStringLiteral("TaskWindowUSBNoShadow");
QString const PanelWindowNew = QStringLiteral("PanelWindowNew");
QString const PanelWindowTransparent = QStringLiteral("PanelWindowTransparent");
QString const ViewIndicatorPanelFrame = QStringLiteral("ViewIndicatorPanelFrame");
QString const FullWindowTitlebar = QStringLiteral("FullWindowTitlebar");
QString const PopupWindowTitlebar = QStringLiteral("PopupWindowTitlebar");
QString const MiniWindow = QStringLiteral("MiniWindow");
QString const MiniWindowRightShadow = QStringLiteral("MiniWindowRightShadow");
QString const MiniWindowBottomShadow = QStringLiteral("MiniWindowBottomShadow");
QString const AlarmFrameGreen = QStringLiteral("AlarmFrameGreen");
QString const AlarmFrameYellow = QStringLiteral("AlarmFrameYellow");
QString const AlarmFrameOrange = QStringLiteral("AlarmFrameOrange");
QString const AlarmFrameRed = QStringLiteral("AlarmFrameRed");
QString const AlarmFrameBlue = QStringLiteral("AlarmFrameBlue");
QString const Shift = QStringLiteral("Shift");
QString const ShiftSmall = QStringLiteral("ShiftSmall");
QString const CapsLockToUpper = QStringLiteral("CapsLockToUpper");
QString const CapsLockToLower = QStringLiteral("CapsLockToLower");
QString const CapsLock = QStringLiteral("CapsLock");
QString const ImplementDiagramRigid = QStringLiteral("ImplementDiagramRigid");
QString const ImplementDiagramDoublePivot = QStringLiteral("ImplementDiagramDoublePivot");
QString const ImplementDiagramPivot = QStringLiteral("ImplementDiagramPivot");
QString const ImplementDiagramInFront = QStringLiteral("ImplementDiagramInFront");
QString const ImplementDiagramSPSprayer = QStringLiteral("ImplementDiagramSPSprayer");
QString const TrackedVehicleDiagram = QStringLiteral("TrackedVehicleDiagram");
QString const ArticulatedVehicleDiagram = QStringLiteral("ArticulatedVehicleDiagram");
QString const FrontSteerVehicleDiagram = QStringLiteral("FrontSteerVehicleDiagram");
QString const HarvesterVehicleDiagram = QStringLiteral("HarvesterVehicleDiagram");
QString const SwatherVehicleDiagram = QStringLiteral("SwatherVehicleDiagram");
QString const SPSprayerVehicleDiagram = QStringLiteral("SPSprayerVehicleDiagram");
QString const NavBarButton = QStringLiteral("NavBarButton");
QString const NavBarButtonSelected = QStringLiteral("NavBarButtonSelected");
QString const DiagnosticsToolbarBackground = QStringLiteral("DiagnosticsToolbarBackground");
QString const MiniWindowTabOff = QStringLiteral("miniWindow-tab-off");
QString const MiniWindowTabOffSelected = QStringLiteral("miniWindow-tab-off-selected");
QString const MiniWindowTabOn = QStringLiteral("miniWindow-tab-on");
QString const MiniWindowTabBlank = QStringLiteral("miniWindow-tab-blank");
QString const TabBarTabOffVertical = QStringLiteral("TabBar-tab-off-vertical");
QString const TabBarTabOffSelectedVertical = QStringLiteral("TabBar-tab-off-selected-vertical");
QString const TabBarTabBlankVertical = QStringLiteral("TabBar-tab-blank-vertical");
QString const TabBarTabOnVertical = QStringLiteral("TabBar-tab-on-vertical");
QString const SetupTabFrame = QStringLiteral("SetupTabFrame");
QString const SetupTabFrameTopCorner = QStringLiteral("SetupTabFrameTopCorner");
QString const SetupTabFrameBottomCorner = QStringLiteral("SetupTabFrameBottomCorner");
QString const LargeMenuButton = QStringLiteral("LargeMenuButton");
QString const LargeMenuButtonSelected = QStringLiteral("LargeMenuButtonSelected");
QString const LargeMenuButtonHighlighted = QStringLiteral("LargeMenuButtonHighlighted");
QString const MenuButtonFlatSmall = QStringLiteral("MenuButtonFlatSmall");
QString const MenuButtonFlatSelectedSmall = QStringLiteral("MenuButtonFlatSelectedSmall");
QString const LargeMenuDesignator = QStringLiteral("LargeMenuDesignator");
QString const ExpandCornerSymbol = QStringLiteral("ExpandCornerSymbol");
QString const BevelButtonExpand = QStringLiteral("BevelButtonExpand");
QString const LeftTabButton = QStringLiteral("LeftTabButton");
QString const LeftTabButtonSelected = QStringLiteral("LeftTabButtonSelected");
QString const RightTabButton = QStringLiteral("RightTabButton");
QString const RightTabButtonSelected = QStringLiteral("RightTabButtonSelected");
QString const TopTabButton = QStringLiteral("TopTabButton");
QString const TopTabButtonSelected = QStringLiteral("TopTabButtonSelected");
QString const BottomTabButton = QStringLiteral("BottomTabButton");
QString const BottomTabButtonSelected = QStringLiteral("BottomTabButtonSelected");
QString const CameraSelectHalo = QStringLiteral("CameraSelectHalo");
QString const PreviousHalo = QStringLiteral("PreviousHalo");
QString const NextHalo = QStringLiteral("NextHalo");
QString const SplitHalo = QStringLiteral("SplitHalo");
QString const FullScreenHalo = QStringLiteral("FullScreenHalo");
QString const ToolTipFrame = QStringLiteral("ToolTipFrame");
QString const PackForceMultiRangeLow = QStringLiteral("PackForceMultiRangeLow");
QString const PackForceMultiRangeMedium = QStringLiteral("PackForceMultiRangeMedium");
QString const PackForceMultiRangeHigh = QStringLiteral("PackForceMultiRangeHigh");
QString const OffScreenButtonFrame = QStringLiteral("OffScreenButtonFrame");
QString const SplashScreen = QStringLiteral("SplashScreen");
QString const BkgControllers800x600 = QStringLiteral("bkgControllers800x600");
QString const BkgSysInfo480x272 = QStringLiteral("bkgSysInfo480x272");
QString const BkgBlackGeneric480x272 = QStringLiteral("bkgBlackGeneric480x272");
QString const BkgDiagnostics800x600 = QStringLiteral("bkgDiagnostics800x600");
QString const BkgUSBGeneric480x272 = QStringLiteral("bkgUSBGeneric480x272");
QString const SetupScreenBackgroundTop480x272 = QStringLiteral("SetupScreenBackgroundTop480x272");
QString const SetupScreenBackgroundBottom480x272 = QStringLiteral("SetupScreenBackgroundBottom480x272");
QString const SetupScreenBackgroundDark800x600 = QStringLiteral("SetupScreenBackgroundDark800x600");
QString const StandardTextFrame = QStringLiteral("StandardTextFrame");
QString const UndefinedPixmap = QStringLiteral("UndefinedPixmap");
QString const BarShading = QStringLiteral("BarShading");
QString const ToolboxBackground = QStringLiteral("ToolboxBackground");
QString const VideoFrameSetup = QStringLiteral("VideoFrameSetup");

namespace
{
QString const* const EveryName[] = {
    &NewStandardButton,
    &NewStandardButtonSelected,
    &NewDisabledButton,
    &NewStandardButtonClear,
    &NewStandardButtonClearSelected,
    &NewGreenButton,
    &NewGreenButtonSelected,
    &NewRedButton,
    &NewRedButtonSelected,
    &NewBlueButton,
    &NewBlueButtonSelected,
    &NewYellowButton,
    &NewYellowButtonSelected,
    &NewOrangeButton,
    &NewOrangeButtonSelected,
    &ButtonBlank,
    &StandardButtonSelected,
    &ButtonDisabled,
    &ButtonGreenUp,
    &GreenButtonSelected,
    &ButtonRedUp,
    &RedButtonSelected,
    &ButtonBlueUp,
    &ButtonPlus,
    &ButtonMinus,
    &BlueButtonSelected,
    &CompactButton,
    &CompactButtonSelected,
    &CompactButtonDisabled,
    &CompactButtonGreen,
    &CompactButtonGreenSelected,
    &CompactButtonRed,
    &CompactButtonRedSelected,
    &CompactButtonBlue,
    &CompactButtonBlueSelected,
    &CompactButtonYellow,
    &CompactButtonYellowSelected,
    &SetupTaskButton,
    &SetupTaskButtonSelected,
    &SetupTaskButtonDisabled,
    &BevelButton,
    &BevelButtonSelected,
    &ModalFieldSelected,
    &KeyboardInputField,
    &KeyboardBackground,
    &PanelWindowTitlebar,
    &PanelWindowTitlebarSelected,
    &PanelWindowTitlebarMaximized,
    &PanelWindowTitlebarMaximizedSelected,
    &PanelWindowTitlebarFixedSize,
    &OptionButton,
    &OptionButtonSelected,
    &WindowToolbarButton,
    &WindowToolbarButtonSelected,
    &WindowToolbarButtonHighlight,
    &WindowToolbarButtonHighlightSelected,
    &ShortcutButton,
    &ShortcutButtonSelected,
    &ListItem,
    &ListItemSelected,
    &ScrollBarHandle,
    &ScrollBarHandleSelected,
    &ScrollBarBackground,
    &ScrollBarGrip,
    &GlassScrollBarHandle,
    &GlassScrollBarHandleSelected,
    &GlassScrollBarBackground,
    &GlassScrollBarGrip,
    &ListInteractiveEntrySelected,
    &DashboardHorizontalSection,
    &DashboardHorizontalSectionSelected,
    &DashboardHorizontalCap,
    &DashboardHorizontalCapSelected,
    &DashButtonWhite,
    &DashButtonWhiteDown,
    &DashButtonGreen,
    &DashButtonGreenDown,
    &DashButtonOrange,
    &DashButtonOrangeDown,
    &DashButtonRed,
    &DashButtonRedDown,
    &DashButtonYellow,
    &DashButtonYellowDown,
    &DashButtonBlue,
    &DashButtonBlueDown,
    &DashboardGauge,
    &DatablockHorizontalSectionSelected,
    &ToolTipMark,
    &ToolTipMarkSelected,
    &TableInteractiveEntrySelected,
    &TableInteractiveEntryMarked,
    &TableButton,
    &TableButtonGlass,
    &TableInteractiveEntryRed,
    &TableInteractiveEntryGreen,
    &ModalInputWindow,
    &CompactKeyboardFrame,
    &PopupWindowBackground,
    &PopupWindowBackgroundRed,
    &TaskWindowNoShadow,
    &TaskWindowNoTitlebarNoShadow,
    &TaskWindowUSBNoShadow,
    &PanelWindowNew,
    &PanelWindowTransparent,
    &ViewIndicatorPanelFrame,
    &FullWindowTitlebar,
    &PopupWindowTitlebar,
    &MiniWindow,
    &MiniWindowRightShadow,
    &MiniWindowBottomShadow,
    &AlarmFrameGreen,
    &AlarmFrameYellow,
    &AlarmFrameOrange,
    &AlarmFrameRed,
    &AlarmFrameBlue,
    &Shift,
    &ShiftSmall,
    &CapsLockToUpper,
    &CapsLockToLower,
    &CapsLock,
    &ImplementDiagramRigid,
    &ImplementDiagramDoublePivot,
    &ImplementDiagramPivot,
    &ImplementDiagramInFront,
    &ImplementDiagramSPSprayer,
    &TrackedVehicleDiagram,
    &ArticulatedVehicleDiagram,
    &FrontSteerVehicleDiagram,
    &HarvesterVehicleDiagram,
    &SwatherVehicleDiagram,
    &SPSprayerVehicleDiagram,
    &NavBarButton,
    &NavBarButtonSelected,
    &DiagnosticsToolbarBackground,
    &MiniWindowTabOff,
    &MiniWindowTabOffSelected,
    &MiniWindowTabOn,
    &MiniWindowTabBlank,
    &TabBarTabOffVertical,
    &TabBarTabOffSelectedVertical,
    &TabBarTabBlankVertical,
    &TabBarTabOnVertical,
    &SetupTabFrame,
    &SetupTabFrameTopCorner,
    &SetupTabFrameBottomCorner,
    &LargeMenuButton,
    &LargeMenuButtonSelected,
    &LargeMenuButtonHighlighted,
    &MenuButtonFlatSmall,
    &MenuButtonFlatSelectedSmall,
    &LargeMenuDesignator,
    &ExpandCornerSymbol,
    &BevelButtonExpand,
    &LeftTabButton,
    &LeftTabButtonSelected,
    &RightTabButton,
    &RightTabButtonSelected,
    &TopTabButton,
    &TopTabButtonSelected,
    &BottomTabButton,
    &BottomTabButtonSelected,
    &CameraSelectHalo,
    &PreviousHalo,
    &NextHalo,
    &SplitHalo,
    &FullScreenHalo,
    &ToolTipFrame,
    &PackForceMultiRangeLow,
    &PackForceMultiRangeMedium,
    &PackForceMultiRangeHigh,
    &OffScreenButtonFrame,
    &SplashScreen,
    &BkgControllers800x600,
    &BkgSysInfo480x272,
    &BkgBlackGeneric480x272,
    &BkgDiagnostics800x600,
    &BkgUSBGeneric480x272,
    &SetupScreenBackgroundTop480x272,
    &SetupScreenBackgroundBottom480x272,
    &SetupScreenBackgroundDark800x600,
    &StandardTextFrame,
    &UndefinedPixmap,
    &BarShading,
    &ToolboxBackground,
    &VideoFrameSetup,
};
} // namespace

QStringList All()
{
    QStringList names;
    for (QString const* name : EveryName)
        names << *name;
    return names;
}
} // namespace PixmapNames
