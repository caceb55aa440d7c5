#include "TTankMessages.h"

#include "MainScreen.h"
#include "PixmapManager.h"
#include "TMachine.h"
#include "TMessageDialog.h"
#include "TQuantity.h"
#include "TScreen.h"
#include "TSprayerModule.h"
#include "TUnitSettings.h"

namespace
{
constexpr int PictureSide = 46;

QPixmap Picture(QString const& icon)
{
    return *tscreenPixmapManager()->GetResizedIcon(icon, PictureSide, KVN::ICON_NORMAL);
}
} // namespace

TTankMessages::TTankMessages(TMachine* machine)
    : m_Machine(machine)
{
    connect(machine, &TMachine::TankBecameLow, this, &TTankMessages::Warn);
    connect(machine, &TMachine::SwitchesChanged, this, &TTankMessages::ShowValuesAnew);
    connect(TUnitSettings::Instance(), &TUnitSettings::Changed, this, &TTankMessages::ShowValuesAnew);
}

TTankMessages::~TTankMessages()
{
    delete m_Question;
    delete m_Warning;
}

QString TTankMessages::Question() const
{
    return tr("%1 will run out of the tank. Is a basin under the outlet, and shall the tank be drained?")
        .arg(Quantities::Tank.Text(m_Machine->TankLitres()));
}

QString TTankMessages::Warning() const
{
    return tr("Less than %1 are left in the tank. The sprayer goes on until it is empty; fill the tank at "
              "the next headland.")
        .arg(Quantities::Tank.Text(m_Machine->LowTank()));
}

// What the operator reads must not be in the units that he has just left.
void TTankMessages::ShowValuesAnew()
{
    if (m_Question)
        m_Question->SetMessage(Question());
    if (m_Warning)
        m_Warning->SetMessage(Warning());
}

void TTankMessages::AskToDrain()
{
    if (m_Question || !MainScreen)
        return;
    m_Question =
        new TMessageDialog(MainScreen, tr("Drain the tank"), Question(), MESSAGE_YES_NO, true, QPixmap());
    m_Question->SetSurfaceID(TSprayerModule::Id());
    connect(m_Question, &TMessageDialog::Yes, m_Machine, &TMachine::DrainTank);
    m_Question->ShowWindow(true);
}

// The machine may say so at any moment, also while the console starts or stops.
void TTankMessages::Warn()
{
    if (m_Warning || !MainScreen)
        return;
    m_Warning = new TMessageDialog(MainScreen, tr("Tank nearly empty"), Warning(), MESSAGE_OK, true,
                                   Picture(QStringLiteral("icon-warning")));
    m_Warning->ShowWindow(true);
}
