#include "TMachinePage.h"

#include "ConfigManager.h"
#include "ConsoleSettings.h"
#include "SetupScreens.h"
#include "TChoiceRow.h"
#include "TMachine.h"
#include "TQuantity.h"
#include "TUnitSettings.h"

#include <QCoreApplication>

namespace
{
constexpr int MostChoices = 4;
} // namespace

/// A thing that the machine has in one of a few ways. Its choice is kept as a number.
struct TMachinePage::TEquipment
{
    char const* screen; ///< on which it stands
    int setting;
    char const* caption;
    char const* toolTip;
    char const* choices[MostChoices]; ///< none where they are lengths
    double lengths[MostChoices] = {}; ///< metres
    int lengthCount = 0;
    int standard = 0; ///< the choice where nothing is stored
    /// Who else has to know of a choice.
    void (*takeUp)(TMachine& machine, int choice) = nullptr;
};

namespace
{
using TEquipment = TMachinePage::TEquipment;

constexpr TEquipment Equipment[] = {
    {SetupScreens::Equipment,
     90001,
     QT_TRANSLATE_NOOP("TMachinePage", "Nozzles"),
     QT_TRANSLATE_NOOP("TMachinePage", "Which nozzles the boom carries"),
     {QT_TRANSLATE_NOOP("TMachinePage", "Flat fan"), QT_TRANSLATE_NOOP("TMachinePage", "Twin fan"),
      QT_TRANSLATE_NOOP("TMachinePage", "Air induction"), nullptr}},
    {SetupScreens::Equipment,
     90002,
     QT_TRANSLATE_NOOP("TMachinePage", "Nozzle size"),
     QT_TRANSLATE_NOOP("TMachinePage", "The size that is printed on the nozzles"),
     {"02", "03", "04", "05"}},
    {SetupScreens::Equipment,
     90003,
     QT_TRANSLATE_NOOP("TMachinePage", "Boom height"),
     QT_TRANSLATE_NOOP("TMachinePage", "How high the boom runs above the crop"),
     {},
     {0.4, 0.5, 0.6, 0.75},
     4},
    {SetupScreens::Equipment,
     90004,
     QT_TRANSLATE_NOOP("TMachinePage", "Overlap"),
     QT_TRANSLATE_NOOP("TMachinePage", "How far two tracks cover each other"),
     {},
     {0.0, 0.1, 0.2},
     3},
    {SetupScreens::Equipment,
     90005,
     QT_TRANSLATE_NOOP("TMachinePage", "Pump"),
     QT_TRANSLATE_NOOP("TMachinePage", "Which pump feeds the boom"),
     {QT_TRANSLATE_NOOP("TMachinePage", "Piston"), QT_TRANSLATE_NOOP("TMachinePage", "Centrifugal"), nullptr,
      nullptr}},
    {SetupScreens::Equipment,
     90006,
     QT_TRANSLATE_NOOP("TMachinePage", "Agitation"),
     QT_TRANSLATE_NOOP("TMachinePage", "How strongly the tank is stirred"),
     {QT_TRANSLATE_NOOP("TMachinePage", "Gentle"), QT_TRANSLATE_NOOP("TMachinePage", "Strong"), nullptr,
      nullptr}},
    {SetupScreens::Steering,
     90007,
     QT_TRANSLATE_NOOP("TMachinePage", "Steering"),
     QT_TRANSLATE_NOOP("TMachinePage", "How the tractor is steered"),
     {QT_TRANSLATE_NOOP("TMachinePage", "Front wheels"), QT_TRANSLATE_NOOP("TMachinePage", "Articulated"),
      QT_TRANSLATE_NOOP("TMachinePage", "Tracks"), nullptr}},
    {SetupScreens::Receiver,
     90008,
     QT_TRANSLATE_NOOP("TMachinePage", "Antenna"),
     QT_TRANSLATE_NOOP("TMachinePage", "Where the antenna is mounted"),
     {QT_TRANSLATE_NOOP("TMachinePage", "On the roof"), QT_TRANSLATE_NOOP("TMachinePage", "On the hood"),
      nullptr, nullptr}},
    {SetupScreens::Receiver,
     90009,
     QT_TRANSLATE_NOOP("TMachinePage", "Speed from"),
     QT_TRANSLATE_NOOP("TMachinePage", "What the speed is measured by"),
     {QT_TRANSLATE_NOOP("TMachinePage", "Satellites"), QT_TRANSLATE_NOOP("TMachinePage", "Wheel"),
      QT_TRANSLATE_NOOP("TMachinePage", "Radar"), nullptr}},
    {SetupScreens::LightBar,
     ConsoleSettings::SETTING_LIGHT_BAR_STEP,
     QT_TRANSLATE_NOOP("TMachinePage", "Light bar step"),
     QT_TRANSLATE_NOOP("TMachinePage", "How far off track one light stands for"),
     {},
     {LightBarScale::Steps[0], LightBarScale::Steps[1], LightBarScale::Steps[2]},
     LightBarScale::StepCount,
     LightBarScale::StandardStep,
     [](TMachine& machine, int choice) { machine.SetLightBarStep(choice); }},
};

QString Text(char const* text)
{
    return QCoreApplication::translate("TMachinePage", text);
}

QStringList ChoicesOf(TEquipment const& equipment)
{
    QStringList choices;
    for (char const* const choice : equipment.choices)
    {
        if (choice)
            choices.append(Text(choice));
    }
    for (int i = 0; i < equipment.lengthCount; ++i)
        choices.append(Quantities::Offset.Text(equipment.lengths[i]));
    return choices;
}
} // namespace

TMachinePage::TMachinePage(QWidget* parent, QString const& screen, TMachine* machine)
    : TSetupPage(parent)
    , m_Machine(machine)
{
    for (TEquipment const& equipment : Equipment)
    {
        if (screen == QLatin1String(equipment.screen))
            AddEquipment(equipment);
    }
    connect(TUnitSettings::Instance(), &TUnitSettings::Changed, this, &TMachinePage::ShowUnitsAnew);
    TMachinePage::Sync();
}

void TMachinePage::AddEquipment(TEquipment const& equipment)
{
    auto* const row =
        new TChoiceRow(Content(), Text(equipment.caption), Text(equipment.toolTip), ChoicesOf(equipment));
    connect(row, &TChoiceRow::Chosen, this,
            [this, row, what = &equipment](int choice)
            {
                ConfigManager::Instance()->Write(what->setting, choice, true);
                if (what->takeUp)
                    what->takeUp(*m_Machine, choice);
                row->SetChoice(choice);
            });
    m_Rows.append({row, &equipment});
    AddLine(row);
}

void TMachinePage::ShowUnitsAnew()
{
    for (TRow const& row : qAsConst(m_Rows))
        row.choices->SetTexts(ChoicesOf(*row.equipment));
}

void TMachinePage::Sync()
{
    for (TRow const& row : qAsConst(m_Rows))
    {
        QVariant const stored = ConfigManager::Instance()->Read(row.equipment->setting);
        row.choices->SetChoice(stored.isValid() ? stored.toInt() : row.equipment->standard);
    }
}
