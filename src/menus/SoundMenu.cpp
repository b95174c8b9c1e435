#include "menus/SoundMenu.h"

#include <cmath>

#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "core/Game.h"
#include "gui/Label.h"
#include "gui/Slider.h"
#include "menus/ScreenListener.h"
#include "sound/ISound.h"

namespace {
constexpr float frameWidth = 380.0f;
constexpr float sliderX = 140.0f;
constexpr float sliderWidth = 170.0f;
constexpr int maxVolume = 128;

int rounded(float v) { return static_cast<int>(std::lround(v)); }

class SoundListener : public ScreenListener<SoundMenu> {
public:
    using ScreenListener::ScreenListener;
    void actionPerformed(const std::string& command, GUIComponent*) override
    {
        if (command == "apply")
            screen.apply();
    }
};
}

SoundMenu::SoundMenu() : MenuFrame("Sound Options", screenName, frameWidth, 200.0f)
{
    volume = addRow("Sound volume:", 46.0f, 0.0f, maxVolume, 8.0f, volumeText);
    music = addRow("Music volume:", 82.0f, 0.0f, maxVolume, 8.0f, musicText);
    buffer = addRow("Buffer (kb):", 118.0f, 256.0f, 4096.0f, 256.0f, bufferText);
    addButton("Apply", "apply", (frameWidth - 120.0f) / 2.0f, 158.0f, 120.0f, 30.0f, true);
    addActionListener(std::make_unique<SoundListener>(*this));
    onShow();
}

Slider* SoundMenu::addRow(const std::string& caption, float relY, float minimum, float maximum, float step,
                          Label*& readout)
{
    addLabel(caption, 10.0f, relY - 3.0f, 120.0f, 26.0f);
    auto slider = std::make_unique<Slider>();
    slider->setBounds(sliderX, relY, sliderWidth, 20.0f);
    slider->setRange(minimum, maximum);
    slider->setStep(step);
    slider->setListener(this);
    Slider* s = addRelative(std::move(slider));
    readout = addLabel("", sliderX + sliderWidth + 6.0f, relY - 3.0f, 50.0f, 26.0f);
    return s;
}

void SoundMenu::onShow()
{
    Game* game = Game::current();
    ISound* sound = game ? game->getSound() : nullptr;
    int vol = 96;
    int unused = 0;
    int frequency = 0;
    int channels = 0;
    int bufferSize = 1024;
    if (sound)
        sound->getSettings(vol, unused, frequency, channels, bufferSize);
    volume->setValue(static_cast<float>(vol));
    const GameVar* musicVolume = findVar("musicvolume");
    music->setValue(static_cast<float>(musicVolume ? musicVolume->intValue : maxVolume));
    buffer->setValue(static_cast<float>(bufferSize));
    for (Slider* s : {volume, music, buffer})
        valueChanged(s, s->getValue());
}

void SoundMenu::valueChanged(GUIComponent* source, float value)
{
    Label* readout = source == volume ? volumeText : source == music ? musicText : bufferText;
    if (readout)
        readout->setText(std::to_string(rounded(value)));
}

bool SoundMenu::apply()
{
    // The sound system follows the variable, device or not.
    setVar("musicvolume", std::to_string(rounded(music->getValue())));
    Game* game = Game::current();
    ISound* sound = game ? game->getSound() : nullptr;
    if (!sound)
        return false;
    sound->setVolume(rounded(volume->getValue()));
    return sound->restart(applyFrequency, applyChannels, rounded(buffer->getValue()));
}
