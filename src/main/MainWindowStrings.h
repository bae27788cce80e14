// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The string-table ids of the main window's texts, named after what they are: captions, help
// lines, tooltips, messages and accessible names.
#pragma once

namespace MainText
{
constexpr int WebResources = 2;
constexpr int WebMensura = 3;
constexpr int PrintAllForItem = 4;
constexpr int SaveAllForItem = 5;
constexpr int WebGeneralInfo = 7;
constexpr int ShowMensura = 8;
constexpr int ProgramTitle = 9;
constexpr int FileMenu = 10;
constexpr int Options = 11;
constexpr int Exit = 12;
constexpr int EditMenu = 20;
constexpr int CopyValue = 21;
constexpr int Paste = 22;
constexpr int SwapUnits = 23;
constexpr int ViewMenu = 30;
constexpr int PhysicalConstants = 31;
constexpr int MetricPrefixes = 32;
constexpr int ShellProgram = 33;
constexpr int SIUnits = 34;
constexpr int ToolsMenu = 35;
constexpr int MarkConversion = 36;
constexpr int DeleteMarked = 37;
constexpr int ViewMarked = 38;
constexpr int AlwaysOnTop = 40;
constexpr int On = 41;
constexpr int Off = 42;
constexpr int WebOverview = 43;
constexpr int HelpMenu = 50;
constexpr int HelpContents = 51;
constexpr int About = 52;
constexpr int AddAll = 60;
constexpr int AddAllHelp = 61;
constexpr int FindUnit = 62;
constexpr int FindUnitHelp = 63;
constexpr int CopyWholeConversion = 64;
constexpr int CopyWholeConversionHelp = 65;
constexpr int LoadConversions = 66;
constexpr int LoadConversionsHelp = 67;
constexpr int SIUnitsHelp = 68;
constexpr int IncreaseFigures = 90;
constexpr int DecreaseFigures = 91;
constexpr int InitialUnit = 101;
constexpr int ConvertedUnit = 102;
constexpr int DeleteMarkedHelp = 250;
constexpr int ViewMarkedHelp = 251;
constexpr int OptionsHelp = 252;
constexpr int AlwaysOnTopHelp = 253;
constexpr int HelpContentsHelp = 254;
constexpr int WebResourcesHelp = 255;
constexpr int WebMensuraHelp = 256;
constexpr int AboutHelp = 257;
constexpr int MenuHelpIdle = 258;
constexpr int SystemMenuHelp = 259;
constexpr int TryAgain = 321;
constexpr int NothingToPaste = 322;
constexpr int DeleteMarkedQuestion = 324;
constexpr int Confirmation = 325;
constexpr int QuitQuestion = 333;
constexpr int PrintAllForItemHelp = 390;
constexpr int SaveAllForItemHelp = 391;
constexpr int ExitHelp = 392;
constexpr int CopyValueHelp = 393;
constexpr int PasteHelp = 394;
constexpr int SwapUnitsHelp = 395;
constexpr int PhysicalConstantsHelp = 396;
constexpr int MetricPrefixesHelp = 397;
constexpr int ShellProgramHelp = 398;
constexpr int MarkConversionHelp = 399;
constexpr int MarkedCount = 400;
constexpr int MarkPanel = 401;
constexpr int DecimalsPanel = 402;
constexpr int MarkedCountTip = 405;
constexpr int MarkPanelTip = 406;
constexpr int DecimalsPanelTip = 407;
constexpr int ScientificPanel = 408;
constexpr int ScientificPanelTip = 409;
constexpr int ValueName = 5500;
constexpr int LeftListName = 5501;
constexpr int RightListName = 5502;
constexpr int ResultName = 5503;
constexpr int IncreaseName = 5504;
constexpr int DecreaseName = 5505;
constexpr int QuantityListName = 5506;
constexpr int MarkedCountName = 5510;
constexpr int MarkPanelName = 5511;
constexpr int DecimalsPanelName = 5512;
constexpr int ScientificPanelName = 5513;
constexpr int IndicatorName = 5520;
constexpr int IndicatorTip = 5521;
constexpr int ReadAs = 5530;
constexpr int NotANumber = 5531;
constexpr int CurrentFigures = 5601;
constexpr int CurrentFiguresEnd = 5602;
constexpr int EqualSign = 5605;
constexpr int StoreNotWritable = 5610;
constexpr int SettingNotANumber = 5611;
// Addresses without scheme, opened by the link rule
constexpr int HomePageTarget = 19;
constexpr int SIInfoTarget = 6;
constexpr int MetricOverviewTarget = 44;
} // namespace MainText
