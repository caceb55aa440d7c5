#include "TTankMessages.h"

#include "MainScreen.h"
#include "PixmapManager.h"
#include "TMachine.h"
#include "TMessageDialog.h"
#include "TScreen.h"
#include "TSprayerModule.h"

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
}

TTankMessages::~TTankMessages()
{
    delete m_Question;
    delete m_Warning;
}

void TTankMessages::AskToDrain()
{
    if (m_Question || !MainScreen)
        return;
    m_Question = new TMessageDialog(
        MainScreen, tr("Drain the tank"),
        tr("%1 litres will run out of the tank. Is a basin under the outlet, and shall the "
           "tank be drained?")
            .arg(qRound(m_Machine->TankLitres())),
        MESSAGE_YES_NO, true, QPixmap());
    m_Question->SetSurfaceID(TSprayerModule::Id());
    connect(m_Question, &TMessageDialog::Yes, m_Machine, &TMachine::DrainTank);
    m_Question->ShowWindow(true);
}

// The machine may say so at any moment, also while the console starts or stops.
void TTankMessages::Warn()
{
    if (m_Warning || !MainScreen)
        return;
    m_Warning =
        new TMessageDialog(MainScreen, tr("Tank nearly empty"),
                           tr("Less than %1 litres are left in the tank. The sprayer goes on until it "
                              "is empty; fill the tank at the next headland.")
                               .arg(qRound(m_Machine->LowTank())),
                           MESSAGE_OK, true, Picture(QStringLiteral("icon-warning")));
    m_Warning->ShowWindow(true);
}
