#include "SetupScreens.h"

#include "TSetupMenu.h"

#include <QCoreApplication>

namespace
{
enum EKind
{
    GROUP,
    SCREEN
};

struct TEntry
{
    EKind kind;
    char const* path;
    char const* text;
    char const* toolTip;
};

// From the top down and from left to right. A text has to fit on one line of an element.
constexpr TEntry Entries[] = {
    {GROUP, "vehicle", QT_TRANSLATE_NOOP("SetupScreens", "Vehicle"),
     QT_TRANSLATE_NOOP("SetupScreens", "What pulls or carries the implement")},
    {SCREEN, SetupScreens::Steering, QT_TRANSLATE_NOOP("SetupScreens", "Steering"),
     QT_TRANSLATE_NOOP("SetupScreens", "How the tractor is steered")},
    {SCREEN, SetupScreens::Receiver, QT_TRANSLATE_NOOP("SetupScreens", "Receiver"),
     QT_TRANSLATE_NOOP("SetupScreens", "Where the position and the speed come from")},
    {SCREEN, "vehicle/dimensions", QT_TRANSLATE_NOOP("SetupScreens", "Dimensions"),
     QT_TRANSLATE_NOOP("SetupScreens", "How long and wide the tractor is")},
    {SCREEN, "vehicle/hitch", QT_TRANSLATE_NOOP("SetupScreens", "Hitch"),
     QT_TRANSLATE_NOOP("SetupScreens", "Where the implement is hitched")},
    {SCREEN, "vehicle/lights", QT_TRANSLATE_NOOP("SetupScreens", "Lights"),
     QT_TRANSLATE_NOOP("SetupScreens", "What the working lights do")},

    {GROUP, "implement", QT_TRANSLATE_NOOP("SetupScreens", "Implement"),
     QT_TRANSLATE_NOOP("SetupScreens", "What works the field")},
    {SCREEN, SetupScreens::Equipment, QT_TRANSLATE_NOOP("SetupScreens", "Equipment"),
     QT_TRANSLATE_NOOP("SetupScreens", "What the sprayer is fitted with")},
    {SCREEN, SetupScreens::Tank, QT_TRANSLATE_NOOP("SetupScreens", "Tank"),
     QT_TRANSLATE_NOOP("SetupScreens", "How much the sprayer carries")},
    {GROUP, "implement/boom", QT_TRANSLATE_NOOP("SetupScreens", "Boom"),
     QT_TRANSLATE_NOOP("SetupScreens", "How the boom is built")},
    {SCREEN, SetupScreens::Sections, QT_TRANSLATE_NOOP("SetupScreens", "Sections"),
     QT_TRANSLATE_NOOP("SetupScreens", "How wide the sections of the boom are")},
    {SCREEN, SetupScreens::Nozzles, QT_TRANSLATE_NOOP("SetupScreens", "Nozzles"),
     QT_TRANSLATE_NOOP("SetupScreens", "What the nozzles give")},
    {SCREEN, "implement/boom/levelling", QT_TRANSLATE_NOOP("SetupScreens", "Levelling"),
     QT_TRANSLATE_NOOP("SetupScreens", "How the boom keeps level")},
    {SCREEN, "implement/boom/folding", QT_TRANSLATE_NOOP("SetupScreens", "Folding"),
     QT_TRANSLATE_NOOP("SetupScreens", "How the boom folds")},
    {GROUP, "implement/product", QT_TRANSLATE_NOOP("SetupScreens", "Product"),
     QT_TRANSLATE_NOOP("SetupScreens", "What is sprayed")},
    {SCREEN, "implement/product/rates", QT_TRANSLATE_NOOP("SetupScreens", "Rates"),
     QT_TRANSLATE_NOOP("SetupScreens", "How much of it goes on the field")},
    {SCREEN, "implement/product/density", QT_TRANSLATE_NOOP("SetupScreens", "Density"),
     QT_TRANSLATE_NOOP("SetupScreens", "How heavy it is")},

    {GROUP, "guidance", QT_TRANSLATE_NOOP("SetupScreens", "Guidance"),
     QT_TRANSLATE_NOOP("SetupScreens", "What keeps the tractor on its line")},
    {SCREEN, SetupScreens::LightBar, QT_TRANSLATE_NOOP("SetupScreens", "Light bar"),
     QT_TRANSLATE_NOOP("SetupScreens", "How finely the light bar shows the way")},
    {SCREEN, "guidance/headland", QT_TRANSLATE_NOOP("SetupScreens", "Headland"),
     QT_TRANSLATE_NOOP("SetupScreens", "What happens at the end of a line")},
    {GROUP, "guidance/lines", QT_TRANSLATE_NOOP("SetupScreens", "Lines"),
     QT_TRANSLATE_NOOP("SetupScreens", "Which lines are driven")},
    {SCREEN, "guidance/lines/straight", QT_TRANSLATE_NOOP("SetupScreens", "Straight"),
     QT_TRANSLATE_NOOP("SetupScreens", "Lines through two points")},
    {SCREEN, "guidance/lines/curved", QT_TRANSLATE_NOOP("SetupScreens", "Curved"),
     QT_TRANSLATE_NOOP("SetupScreens", "Lines that were driven once")},
    {SCREEN, "guidance/lines/tramlines", QT_TRANSLATE_NOOP("SetupScreens", "Tramlines"),
     QT_TRANSLATE_NOOP("SetupScreens", "Which lines the wheels keep to")},

    {GROUP, "job", QT_TRANSLATE_NOOP("SetupScreens", "Job"),
     QT_TRANSLATE_NOOP("SetupScreens", "Who works on what")},
    {SCREEN, SetupScreens::Job, QT_TRANSLATE_NOOP("SetupScreens", "Details"),
     QT_TRANSLATE_NOOP("SetupScreens", "Who works, since when, and for whom")},
    {SCREEN, "job/fields", QT_TRANSLATE_NOOP("SetupScreens", "Fields"),
     QT_TRANSLATE_NOOP("SetupScreens", "The fields of the farm")},
    {SCREEN, "job/reports", QT_TRANSLATE_NOOP("SetupScreens", "Reports"),
     QT_TRANSLATE_NOOP("SetupScreens", "What is told of a job when it is done")},

    {GROUP, "display", QT_TRANSLATE_NOOP("SetupScreens", "Display"),
     QT_TRANSLATE_NOOP("SetupScreens", "What the screen looks like")},
    {SCREEN, SetupScreens::Buttons, QT_TRANSLATE_NOOP("SetupScreens", "Buttons"),
     QT_TRANSLATE_NOOP("SetupScreens", "How large the buttons are")},
    {SCREEN, "display/brightness", QT_TRANSLATE_NOOP("SetupScreens", "Brightness"),
     QT_TRANSLATE_NOOP("SetupScreens", "How bright the screen is")},
    {SCREEN, "display/night", QT_TRANSLATE_NOOP("SetupScreens", "Night"),
     QT_TRANSLATE_NOOP("SetupScreens", "What changes after dark")},

    {GROUP, "system", QT_TRANSLATE_NOOP("SetupScreens", "System"),
     QT_TRANSLATE_NOOP("SetupScreens", "What the console itself does")},
    {SCREEN, SetupScreens::Sound, QT_TRANSLATE_NOOP("SetupScreens", "Sound"),
     QT_TRANSLATE_NOOP("SetupScreens", "What the console lets you hear")},
    {SCREEN, SetupScreens::Units, QT_TRANSLATE_NOOP("SetupScreens", "Units"),
     QT_TRANSLATE_NOOP("SetupScreens", "In which units you read values")},
    {SCREEN, SetupScreens::Language, QT_TRANSLATE_NOOP("SetupScreens", "Language"),
     QT_TRANSLATE_NOOP("SetupScreens", "How numbers and dates are written")},
    {SCREEN, SetupScreens::Clock, QT_TRANSLATE_NOOP("SetupScreens", "Clock"),
     QT_TRANSLATE_NOOP("SetupScreens", "How dates and times are told")},
    {SCREEN, SetupScreens::About, QT_TRANSLATE_NOOP("SetupScreens", "About"),
     QT_TRANSLATE_NOOP("SetupScreens", "Versions, and switching the console off")},
    {SCREEN, "system/storage", QT_TRANSLATE_NOOP("SetupScreens", "Storage"),
     QT_TRANSLATE_NOOP("SetupScreens", "How much room is left")},
    {GROUP, "system/network", QT_TRANSLATE_NOOP("SetupScreens", "Network"),
     QT_TRANSLATE_NOOP("SetupScreens", "How the console reaches others")},
    {SCREEN, "system/network/wireless", QT_TRANSLATE_NOOP("SetupScreens", "Wireless"),
     QT_TRANSLATE_NOOP("SetupScreens", "By radio on the farm")},
    {SCREEN, "system/network/modem", QT_TRANSLATE_NOOP("SetupScreens", "Modem"),
     QT_TRANSLATE_NOOP("SetupScreens", "By telephone from the field")},
};
} // namespace

void SetupScreens::AddTo(TSetupMenu* menu)
{
    for (TEntry const& entry : Entries)
    {
        QString const path = QLatin1String(entry.path);
        QString const text = QCoreApplication::translate("SetupScreens", entry.text);
        QString const toolTip = QCoreApplication::translate("SetupScreens", entry.toolTip);
        if (entry.kind == GROUP)
            menu->AddGroup(path, text, toolTip);
        else
            menu->AddScreen(path, text, toolTip);
    }
}
