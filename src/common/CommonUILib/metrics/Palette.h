#pragma once

#include "CommonUILibExport.h"

#include <QColor>

/// \file
/// The palette. Filled at static initialisation, never changed.

extern COMMONUILIB_EXPORT QColor const pushButtonColor;
extern COMMONUILIB_EXPORT QColor const listItemColor;
extern COMMONUILIB_EXPORT QColor const listButtonColorGlass;
extern COMMONUILIB_EXPORT QColor const pushButtonSelectedColor;
extern COMMONUILIB_EXPORT QColor const sunkenFrameFillColor;
extern COMMONUILIB_EXPORT QColor const sunkenFrameHighlightColor;
extern COMMONUILIB_EXPORT QColor const sunkenFrameShadowColor;
extern COMMONUILIB_EXPORT QColor const LineHighLightColor;
extern COMMONUILIB_EXPORT QColor const LineLowLightColor;
extern COMMONUILIB_EXPORT QColor const clearColor;
extern COMMONUILIB_EXPORT QColor const regularTextColor;
extern COMMONUILIB_EXPORT QColor const regularTextColorTransparent;
extern COMMONUILIB_EXPORT QColor const regularLabelTextColor;
extern COMMONUILIB_EXPORT QColor const hintTextColor;
extern COMMONUILIB_EXPORT QColor const regularButtonTextColor;
extern COMMONUILIB_EXPORT QColor const editTextColor;
extern COMMONUILIB_EXPORT QColor const statusWindowColor;
extern COMMONUILIB_EXPORT QColor const alternatingRowColor;
extern COMMONUILIB_EXPORT QColor const alarmInformationColor;
extern COMMONUILIB_EXPORT QColor const alarmCautionColor;
extern COMMONUILIB_EXPORT QColor const alarmWarningColor;
extern COMMONUILIB_EXPORT QColor const alarmCriticalColor;
extern COMMONUILIB_EXPORT QColor const alarmEngageColor;
extern COMMONUILIB_EXPORT QColor const statusGoodColor;
extern COMMONUILIB_EXPORT QColor const statusDegradedColor;
extern COMMONUILIB_EXPORT QColor const statusCautionColor;
extern COMMONUILIB_EXPORT QColor const statusBadColor;
extern COMMONUILIB_EXPORT QColor const statusUnknownColor;
extern COMMONUILIB_EXPORT QColor const modalFadeoutColor;
extern COMMONUILIB_EXPORT QColor const modalEditColor;
extern COMMONUILIB_EXPORT QColor const DashboardPrimaryTextColor;
extern COMMONUILIB_EXPORT QColor const DashboardSecondaryTextColor;
extern COMMONUILIB_EXPORT QColor const DashboardUnitsTextColor;
extern COMMONUILIB_EXPORT QColor const DashboardHighlightFrameColor;
extern COMMONUILIB_EXPORT QColor const DashboardLowlightFrameColor;
extern COMMONUILIB_EXPORT QColor const DashboardFrameColor;
extern COMMONUILIB_EXPORT QColor const LineDisabledColor;
extern COMMONUILIB_EXPORT QColor const LineOffColor;
extern COMMONUILIB_EXPORT QColor const SectionOffColor;
extern COMMONUILIB_EXPORT QColor const SectionInhibitedColor;
extern COMMONUILIB_EXPORT QColor const SectionNoFlowColor;
extern COMMONUILIB_EXPORT QColor const SectionFlowingColor;
extern COMMONUILIB_EXPORT QColor const SectionASCFlowDifferColor;
extern COMMONUILIB_EXPORT QColor const NoCommsColor;
extern COMMONUILIB_EXPORT QColor const SwitchBoxDarkTextColor;
extern COMMONUILIB_EXPORT QColor const SwitchBoxLightTextColor;
extern COMMONUILIB_EXPORT QColor const ActiveBoomIndicatorColor;
extern COMMONUILIB_EXPORT QColor const MainTankFluidColor;
extern COMMONUILIB_EXPORT QColor const ChemInjTankFluidColor;
extern COMMONUILIB_EXPORT QColor const DisabledTankFluidColor;
extern COMMONUILIB_EXPORT QColor const LowVolumeTankFluidColor;
extern COMMONUILIB_EXPORT QColor const LowVolumeEmptyPartOfTankColor;
extern COMMONUILIB_EXPORT QColor const EmptyTankColor;
extern COMMONUILIB_EXPORT QColor const LevelMeterBarColor;
extern COMMONUILIB_EXPORT QColor const MainViewHighlightFrameColor;
extern COMMONUILIB_EXPORT QColor const MainViewLowlightFrameColor;
extern COMMONUILIB_EXPORT QColor const MainViewFrameColor;
extern COMMONUILIB_EXPORT QColor const USBFileListButtonColor;
/// Invalid on purpose: it draws nothing and means that the default stands. Test validity before painting with
/// it.
extern COMMONUILIB_EXPORT QColor const LocalFileListColor;
extern COMMONUILIB_EXPORT QColor const InvalidAsAppliedMapRangeColor;
extern COMMONUILIB_EXPORT QColor const UpperBoundAsAppliedMapColor;
extern COMMONUILIB_EXPORT QColor const LowerBoundAsAppliedMapColor;
extern COMMONUILIB_EXPORT QColor const InvalidGPSQualityRangeColor;
extern COMMONUILIB_EXPORT QColor const UpperBoundGPSQualityColor;
extern COMMONUILIB_EXPORT QColor const LowerBoundGPSQualityColor;
extern COMMONUILIB_EXPORT QColor const ToolTipTextColor;
extern COMMONUILIB_EXPORT QColor const SwathColor;
extern COMMONUILIB_EXPORT QColor const ReverseStationIndicatorColor;
