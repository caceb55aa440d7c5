#include "TSoundPage.h"

#include "ConfigManager.h"
#include "SoundVolume.h"
#include "TChoiceRow.h"
#include "TPushButton.h"
#include "TQuantity.h"
#include "TValueField.h"

#include <QHBoxLayout>

namespace
{
constexpr int Gap = 10;
constexpr int StepButtonWidth = 96;
constexpr int RepeatDelay = 250;
constexpr int RepeatInterval = 100;
} // namespace

TSoundPage::TSoundPage(QWidget* parent)
    : TSetupPage(parent)
    , m_Sounds(new TChoiceRow(Content(), tr("Sounds"), tr("Whether buttons and alarms are heard"),
                              {tr("Off"), tr("On")}))
{
    connect(m_Sounds, &TChoiceRow::Chosen, this,
            [this](int choice)
            {
                ConfigManager::Instance()->Write(CONFIG_SOUND_ENABLED, choice == 1, true);
                Sync();
            });
    AddLine(m_Sounds);
    AddLine(MakeVolume());
}

QWidget* TSoundPage::MakeVolume()
{
    auto* const line = new QWidget(Content());
    m_Quieter = MakeStep(line, QStringLiteral("icon-minus-larger"), tr("Quieter"), -1);
    m_Louder = MakeStep(line, QStringLiteral("icon-plus-larger"), tr("Louder"), 1);
    m_Volume = new TValueField(line, tr("Volume"));
    m_Volume->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    auto* const layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Gap);
    layout->addWidget(m_Quieter);
    layout->addWidget(m_Volume);
    layout->addWidget(m_Louder);
    return line;
}

TPushButton* TSoundPage::MakeStep(QWidget* parent, QString const& icon, QString const& toolTip, int step)
{
    auto* const button = new TPushButton(parent, icon, QSize(), QPoint(), 0, toolTip);
    button->SetAutoRepeat(true, RepeatDelay, RepeatInterval);
    button->setFixedSize(StepButtonWidth, TSetupRow::Height);
    connect(button, &TPushButton::Clicked, this,
            [this, step]
            {
                StepSoundVolume(step);
                Sync();
            });
    return button;
}

void TSoundPage::Sync()
{
    ConfigManager const* const settings = ConfigManager::Instance();
    bool const isSoundOn = settings->Read(CONFIG_SOUND_ENABLED).toBool();
    int const volume = settings->Read(CONFIG_SOUND_VOLUME).toInt();
    m_Sounds->SetChoice(isSoundOn ? 1 : 0);
    m_Volume->SetValue(Quantities::Share, volume);
    m_Quieter->setEnabled(isSoundOn && volume > 0);
    m_Louder->setEnabled(isSoundOn && volume < LoudestVolume);
}
