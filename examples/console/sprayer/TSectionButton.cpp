#include "TSectionButton.h"

#include "Palette.h"
#include "PixmapNames.h"
#include "TMachine.h"

namespace
{
constexpr int NumberSize = 24;
constexpr int Centred = Qt::AlignHCenter | Qt::AlignVCenter;
} // namespace

TSectionButton::TSectionButton(QWidget* parent, TMachine* machine, int section)
    : TPushButton(parent, QString(), PixmapNames::NewGreenButton, PixmapNames::NewGreenButtonSelected,
                  section, tr("Switches section %1").arg(section + 1))
    , m_Machine(machine)
    , m_Section(section)
{
    SetText(QString::number(section + 1), QStringLiteral("section-%1").arg(section + 1), true, QString(),
            false);
    SetFontProperties(regularButtonTextColor, NumberSize, true, false, false, Centred, false);
    connect(this, &TPushButton::Clicked, this,
            [this] { m_Machine->SetSectionOn(m_Section, !m_Machine->IsSectionOn(m_Section)); });
    connect(machine, &TMachine::SwitchesChanged, this, &TSectionButton::Sync);
    Sync();
}

void TSectionButton::Sync()
{
    bool const isOn = m_Machine->IsSectionOn(m_Section);
    SetBackground(isOn ? PixmapNames::NewGreenButton : PixmapNames::NewRedButton);
    SetBackgroundSelected(isOn ? PixmapNames::NewGreenButtonSelected : PixmapNames::NewRedButtonSelected);
}
