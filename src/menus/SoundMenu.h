#pragma once
// Sound volume, music volume and mixing buffer size. "Apply" sets both
// volumes and reopens the sound device with the chosen buffer.
#include "gui/SliderListener.h"
#include "menus/MenuFrame.h"

class Label;
class Slider;

class SoundMenu : public MenuFrame, public SliderListener {
public:
    static constexpr const char* screenName = "sound";
    static constexpr int applyFrequency = 22050;
    static constexpr int applyChannels = 2;

    SoundMenu();

    // The sliders show the sound system's current settings.
    void onShow() override;
    // Updates the number beside the slider that moved.
    void valueChanged(GUIComponent* source, float value) override;
    // The volume, the music volume ("musicvolume") and a restart with the
    // buffer size. False when the restart failed.
    bool apply();

    Slider& getVolume() { return *volume; }
    Slider& getMusic() { return *music; }
    Slider& getBuffer() { return *buffer; }

private:
    Slider* addRow(const std::string& caption, float relY, float minimum, float maximum, float step, Label*& readout);

    Slider* volume = nullptr;
    Slider* music = nullptr;
    Slider* buffer = nullptr;
    Label* volumeText = nullptr;
    Label* musicText = nullptr;
    Label* bufferText = nullptr;
};
