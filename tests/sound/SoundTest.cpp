#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <memory>
#include <string>
#include <tuple>

#include "FakeMixer.h"
#include "TestPaths.h"
#include "console/ConLine.h"
#include "console/RegistryFixture.h"
#include "sound/Sound.h"

namespace {

const std::string wav = "RIFF....WAVEfmt ";

// The game only lends its console, which receives the sound messages.
class SoundTest : public HeadlessGameFixture {
protected:
    void SetUp() override
    {
        HeadlessGameFixture::SetUp();
        createVar("volume", "128", "");
        createVar("soundfrequency", "44100", "");
        createVar("soundchannels", "2", "");
        createVar("soundbuffer", "1024", "");
        auto fake = std::make_unique<FakeMixer>();
        mixer = fake.get();
        sound = std::make_unique<Sound>(std::move(fake));
    }
    void TearDown() override
    {
        sound.reset();
        HeadlessGameFixture::TearDown();
    }

    void start() { ASSERT_TRUE(sound->initialise()); }
    std::string lastConsoleLine() const
    {
        const auto& lines = game->getConsole()->getLines();
        return lines.empty() ? "" : lines.back()->text;
    }

    FakeMixer* mixer = nullptr;
    std::unique_ptr<Sound> sound;
};

TEST_F(SoundTest, VolumeCommandsKeepToTheRangeAndRefuseWhatIsOutsideIt)
{
    const char* const refused = "Volume must be between 0 and 128";
    struct Case {
        const char* command;
        int volume;
        const char* message;
    };
    const Case cases[] = {
        {"setvolume 100", 100, ""},     {"setvolume 129", 100, refused}, {"setvolume -1", 100, refused},
        {"set volume 500", 100, refused}, {"setvolume 128", 128, ""},     {"setvolume", 128, ""},
        {"setvolume 127", 127, ""},     {"volumeup", 128, ""},           {"volumeup 10", 128, ""},
        {"volumedown 500", 0, ""},      {"volumeup 2147483647", 128, ""}, {"volumedown", 127, ""},
    };
    start();
    for (const Case& c : cases) {
        game->getConsole()->clear();
        run(c.command);
        EXPECT_EQ(lastConsoleLine(), c.message) << c.command;
        EXPECT_EQ(sound->getVolume(), c.volume) << c.command;
        EXPECT_EQ(mixer->volumes[20], c.volume) << c.command;
    }
}

TEST_F(SoundTest, PositionalSoundsFadeLinearlyToSilenceAt480UnitsAndScaleByTheirPercent)
{
    const float nan = std::nanf("");
    struct Case {
        const char* what;
        int percent;
        bool positional;
        Vector position;
        int volume;
    };
    const Case cases[] = {
        {"at the listener", 100, true, Vector(0, 0), 128},
        {"half way", 100, true, Vector(240, 0), 64},
        {"at 480", 100, true, Vector(0, -480), 0},
        {"beyond", 100, true, Vector(-5000, 0), 0},
        {"half loud", 50, true, Vector(0, 0), 64},
        {"plain sounds ignore distance and percent", 50, false, Vector(5000, 0), 128},
        {"nowhere", 100, true, Vector(nan, nan), 0},
    };
    start();
    sound->update(Vector(0, 0));
    int id = 0;
    for (const Case& c : cases) {
        const std::string file = std::to_string(++id) + ".wav";
        dir.write(file, wav);
        sound->registerSound(id, -1, c.percent, c.positional, file);
        const int channel = sound->playIdAt(id, c.position, 0);
        ASSERT_GE(channel, 10) << c.what;
        EXPECT_EQ(mixer->volumes[channel], c.volume) << c.what << ": set as play starts";
        sound->update(Vector(0, 0));
        EXPECT_EQ(mixer->volumes[channel], c.volume) << c.what;
        sound->stopChannel(channel);
    }

    // A sound already playing follows the listener.
    const int channel = sound->playIdAt(2, Vector(240, 0), -1);
    sound->update(Vector(240, 480));
    EXPECT_EQ(mixer->volumes[channel], 0);
    sound->update(Vector(240, 0));
    EXPECT_EQ(mixer->volumes[channel], 128);
}

TEST_F(SoundTest, PanningFollowsTheSoundsSideOfTheListener)
{
    const Vector listener(100, 50);
    const float nan = std::nanf("");
    struct Case {
        const char* what;
        Vector position;
        int left;
        int right;
    };
    const Case cases[] = {
        {"at the listener", Vector(100, 50), 255, 255},
        {"straight above", Vector(100, 400), 255, 255},
        {"a little right", Vector(160, 50), 207, 255},
        {"far right", Vector(340, -20), 64, 255},
        {"beyond the fade", Vector(5000, 50), 64, 255},
        {"left", Vector(-20, 90), 255, 159},
        {"far left", Vector(-300, 50), 255, 64},
        {"nowhere", Vector(nan, nan), 255, 255},
    };
    for (const Case& c : cases) {
        const Sound::Pan pan = Sound::panFor(c.position, listener);
        EXPECT_EQ(pan.left, c.left) << c.what;
        EXPECT_EQ(pan.right, c.right) << c.what;
    }
}

TEST_F(SoundTest, ChannelsPanAsTheListenerPassesAndPlainSoundsPlayCentred)
{
    dir.write("hum.wav", wav);
    dir.write("ui.wav", wav);
    start();
    sound->registerSound(32, 12, 100, true, "hum.wav");
    sound->registerSound(9, 12, 100, false, "ui.wav");
    sound->update(Vector(0, 0));
    ASSERT_EQ(sound->playIdAt(32, Vector(240, 0), -1), 12);
    EXPECT_EQ(mixer->pans[12], (Sound::Pan{64, 255})) << "panned as play starts";

    sound->update(Vector(480, 0));
    EXPECT_EQ(mixer->pans[12], (Sound::Pan{255, 64}));
    const int calls = mixer->panCalls;
    sound->update(Vector(480, 0));
    EXPECT_EQ(mixer->panCalls, calls) << "unchanged panning is not sent again";

    // The same channel reused by a sound heard at the player.
    ASSERT_EQ(sound->playId(9, 0), 12);
    EXPECT_EQ(mixer->pans[12], (Sound::Pan{255, 255}));

    // The mixer centres a channel whose sound ended; the next sound on it
    // at the same side must be panned again, between updates or across one.
    ASSERT_EQ(sound->playIdAt(32, Vector(0, 0), -1), 12);
    EXPECT_EQ(mixer->pans[12], (Sound::Pan{255, 64}));
    mixer->finishChannel(12);
    ASSERT_EQ(sound->playIdAt(32, Vector(0, 0), -1), 12);
    EXPECT_EQ(mixer->pans[12], (Sound::Pan{255, 64}));
    mixer->finishChannel(12);
    sound->update(Vector(480, 0));
    ASSERT_EQ(sound->playIdAt(32, Vector(0, 0), -1), 12);
    EXPECT_EQ(mixer->pans[12], (Sound::Pan{255, 64}));
}

TEST_F(SoundTest, MusicCrossfadesLoopsAndKeepsATrackThatIsAlreadyPlaying)
{
    createVar("musicvolume", "80", "");
    dir.write("data/music/a.ogg", "OggS music a");
    dir.write("data/music/b.ogg", "OggS music b");
    start();
    ASSERT_TRUE(sound->playMusic("data/music/a.ogg"));
    EXPECT_EQ(mixer->musicStarts, 1) << "nothing to fade out first";
    EXPECT_EQ(mixer->musicLoops, -1);
    EXPECT_EQ(mixer->musicVolume, 80);
    run("set musicvolume 40");
    EXPECT_EQ(mixer->musicVolume, 40);

    EXPECT_TRUE(sound->playMusic("data/music/a.ogg"));
    EXPECT_EQ(mixer->musicStarts, 1) << "the same track plays on";

    ASSERT_TRUE(sound->playMusic("data/music/b.ogg"));
    EXPECT_TRUE(mixer->musicFadingOut);
    sound->update(Vector());
    EXPECT_EQ(mixer->musicStarts, 1) << "waits for the fade";
    mixer->finishFade();
    sound->update(Vector());
    EXPECT_EQ(mixer->musicStarts, 2);
    EXPECT_EQ(mixer->liveMusic, 1) << "the old stream is freed";
    EXPECT_TRUE(sound->isMusicStarted());

    // A change while paused cannot wait for a fade that never runs.
    sound->pauseMusic(true);
    EXPECT_TRUE(mixer->musicPaused);
    ASSERT_TRUE(sound->playMusic("data/music/a.ogg"));
    EXPECT_EQ(mixer->musicStarts, 3);
    EXPECT_TRUE(mixer->musicPaused) << "the new track waits for the game too";
    sound->pauseMusic(false);
    EXPECT_FALSE(mixer->musicPaused);

    // A reopened device plays the same track again, not a second copy.
    run("soundrestart");
    EXPECT_EQ(mixer->musicStarts, 4);
    EXPECT_EQ(mixer->liveMusic, 1);
    EXPECT_EQ(mixer->musicVolume, 40);
}

TEST_F(SoundTest, MissingOrBrokenMusicIsReportedAndLeavesSilence)
{
    dir.write("data/music/a.ogg", "OggS music a");
    dir.write("data/music/bad.ogg", "not vorbis");
    start();
    ASSERT_TRUE(sound->playMusic("data/music/a.ogg"));
    EXPECT_EQ(mixer->musicVolume, 128) << "full volume without a music variable";

    const std::string out = stdoutOf([&] { EXPECT_FALSE(sound->playMusic("data/music/gone.ogg")); });
    EXPECT_NE(out.find("Couldn't find music: data/music/gone.ogg\n"), std::string::npos) << out;
    EXPECT_TRUE(mixer->musicFadingOut) << "the old track fades to silence";
    EXPECT_EQ(sound->getMusicPath(), "");
    mixer->finishFade();
    sound->update(Vector());
    EXPECT_FALSE(mixer->musicPlaying);

    EXPECT_TRUE(sound->playMusic("data/music/bad.ogg"));
    sound->update(Vector());
    EXPECT_FALSE(mixer->musicPlaying);
    EXPECT_FALSE(sound->isMusicStarted());
    EXPECT_EQ(mixer->musicStarts, 1);
}

TEST_F(SoundTest, PlaySoundAtStartsALoopAtTheListenerAndStopSoundsEndsIt)
{
    dir.write("hum.wav", wav);
    start();
    sound->update(Vector(100, 100));
    run("playsoundat hum.wav -1");
    const int atListener = 10;
    ASSERT_TRUE(mixer->busy[atListener]);
    EXPECT_EQ(mixer->lastLoops, -1);
    sound->update(Vector(100, 100));
    EXPECT_EQ(mixer->volumes[atListener], 128);
    run("playsoundat hum.wav 0 340 100");
    EXPECT_EQ(mixer->volumes[atListener + 1], 64) << "placed 240 units away";

    run("playsoundat");
    EXPECT_EQ(lastConsoleLine(), "usage: playsoundat <file> [loops] [x y]");
    run("playsoundat nothing.wav");
    EXPECT_EQ(lastConsoleLine(), "Could not play nothing.wav");
    run("stopsounds");
    for (int i = 0; i < 32; ++i)
        EXPECT_FALSE(mixer->busy[i]) << i;
}

TEST_F(SoundTest, PlayByNameLoadsOnceAndSharesTheSample)
{
    dir.write("tick.wav", wav);
    start();
    const int first = sound->play("tick.wav", 0, 100);
    EXPECT_GE(first, 10);
    EXPECT_NE(sound->play("tick.wav", 0, 100), first);
    EXPECT_EQ(mixer->decodes, 1);

    // Nothing to play: a missing file, a bad index or an unknown id.
    EXPECT_EQ(sound->play("missing.wav", 0, 100), -1);
    EXPECT_EQ(sound->playAt(Vector(), "missing.wav", 0, 100), -1);
    EXPECT_EQ(sound->play(7, 0), -1);
    EXPECT_EQ(sound->play(-1, 0), -1);
    EXPECT_EQ(sound->playId(999, 0), -1);
    EXPECT_EQ(sound->getSampleCount(), 1);
}

TEST_F(SoundTest, PlayingChannelCountsAtTheLastUpdateCapNewSounds)
{
    dir.write("a.wav", wav);
    start();
    const int index = sound->loadSound("a.wav");
    // Channels playing at the last update; plain play allows more than positional.
    const struct {
        int playing;
        bool plain;
        bool positional;
    } cases[] = {{5, true, true}, {6, true, false}, {10, true, false}, {11, false, false}};
    for (const auto& c : cases) {
        mixer->busy.fill(false);
        mixer->fillChannels(c.playing);
        sound->update(Vector());
        EXPECT_EQ(sound->getPlayingCount(), c.playing);
        EXPECT_EQ(sound->playAt(Vector(), index, 0) >= 10, c.positional) << c.playing;
        EXPECT_EQ(sound->play(index, 0) >= 10, c.plain) << c.playing;
    }
}

TEST_F(SoundTest, NamedChannelsCutOffTheirOwnSoundsAndStopChannelChecksItsRange)
{
    dir.write("cash.wav", wav);
    start();
    sound->registerSound(24, 4, 100, false, "cash.wav");
    EXPECT_EQ(sound->playIdAt(24, Vector(5, 5), 0), 4);
    EXPECT_EQ(sound->playIdAt(24, Vector(5, 5), 0), 4);
    EXPECT_EQ(sound->playIdOnChannelAt(24, 2, Vector(), 0), 2);
    EXPECT_EQ(sound->playIdOnChannelAt(24, 32, Vector(), 0), -1);
    EXPECT_EQ(sound->playIdOnChannelAt(24, -2, Vector(), 0), -1);

    sound->stopChannel(32);
    sound->stopChannel(-1);
    EXPECT_TRUE(mixer->busy[4]);
    sound->stopChannel(4);
    EXPECT_FALSE(mixer->busy[4]);
    EXPECT_FALSE(sound->getChannelInfo(4).playing);
}

TEST_F(SoundTest, WithoutADeviceEverythingIsSilentUntilARestartSucceeds)
{
    dir.write("a.wav", wav);
    mixer->acceptOpen = false;
    EXPECT_FALSE(sound->initialise());
    EXPECT_EQ(sound->getVolume(), 0);
    const int index = sound->loadSound("a.wav");
    EXPECT_EQ(index, 0) << "kept, to be decoded when a device opens";
    EXPECT_EQ(mixer->decodes, 0);
    EXPECT_EQ(sound->play(index, 0), -1);
    EXPECT_EQ(sound->playAt(Vector(), index, 0), -1);
    sound->update(Vector());
    sound->stopChannel(3);
    EXPECT_EQ(sound->loadSound("gone.wav"), -1) << "a missing file is still reported";

    mixer->acceptOpen = true;
    run("soundrestart");
    EXPECT_TRUE(sound->isReady());
    EXPECT_EQ(mixer->decodes, 1);
    EXPECT_GE(sound->play(index, 0), 10);
    EXPECT_EQ(sound->getVolume(), 128);

    sound->closeAudio();
    EXPECT_EQ(sound->play(index, 0), -1);
}

TEST_F(SoundTest, UnusableSettingsFallBackToTheLastSafeOnesAndAFormatChangeRedecodes)
{
    setVar("soundfrequency", "0");
    setVar("soundbuffer", "banana");
    dir.write("a.wav", wav);
    start();
    EXPECT_EQ(mixer->spec.frequency, 44100);
    EXPECT_EQ(mixer->lastBufferSize, 1024);
    sound->loadSound("a.wav");
    EXPECT_EQ(mixer->decodes, 1);

    EXPECT_TRUE(sound->restart(22050, 1, 2048));
    EXPECT_EQ(mixer->spec.frequency, 22050);
    EXPECT_EQ(mixer->decodes, 2) << "chunks are converted for the device format";
    EXPECT_EQ(mixer->liveChunks, 1);

    mixer->refusedFrequency = 11025;
    EXPECT_TRUE(sound->restart(11025, 2, 512));
    int volume, unused, frequency, channels, buffer;
    sound->getSettings(volume, unused, frequency, channels, buffer);
    EXPECT_EQ(frequency, 22050);
    EXPECT_EQ(channels, 1);
    EXPECT_EQ(buffer, 2048);
    EXPECT_EQ(unused, 0);

    // Absurd numbers never reach the device.
    const int opens = mixer->opens;
    EXPECT_TRUE(sound->restart(-5, 99, 1 << 30));
    EXPECT_EQ(mixer->opens, opens + 1);
    EXPECT_EQ(mixer->lastBufferSize, 2048);

    sound->configure(40, 0, 44100, 2, 1024);
    EXPECT_EQ(sound->getVolume(), 40);
    EXPECT_EQ(mixer->spec.frequency, 44100);
}

TEST_F(SoundTest, DefinitionsSkipBadEntriesAndShareSamplesByPath)
{
    dir.write("data/sounds/a.wav", wav);
    dir.write("data/sounds/b.ogg", "OggS....");
    dir.write("data/sounds/junk.wav", "not a sound");
    dir.write("data/sounds/sounds.xml",
              "<sounds>\n"
              " <sound id=\"0\" path=\"data/sounds/a.wav\" channel=\"3\" volume=\"70\" positional=\"false\"/>\n"
              " <sound id=\"1\" path=\"data/sounds/a.wav\" channel=\"-1\" volume=\"20\" positional=\"true\"/>\n"
              " <sound id=\"2\" path=\"data/sounds/b.ogg\" positional=\"true\"/>\n"
              " <sound id=\"x\" path=\"data/sounds/b.ogg\"/>\n"
              " <sound id=\"-4\" path=\"data/sounds/b.ogg\"/>\n"
              " <sound path=\"data/sounds/b.ogg\"/>\n"
              " <sound id=\"5\" path=\"data/sounds/missing.wav\"/>\n"
              " <sound id=\"6\" path=\"data/sounds/junk.wav\"/>\n"
              " <sound id=\"7\"/>\n"
              " <anything id=\"8\" path=\"data/sounds/b.ogg\" channel=\"77\" volume=\"900\" positional=\"TRUE\"/>\n"
              "</sounds>\n");
    start();
    ASSERT_TRUE(sound->loadDefinitions("data/sounds/sounds.xml"));
    EXPECT_EQ(sound->getSampleCount(), 2);
    EXPECT_EQ(sound->findId(0), sound->findId(1)) << "same path, one sample";
    // Channel, volume and placement of each sample.
    const auto settings = [&](const char* path) {
        const SoundSample* s = sound->getSample(path);
        return s ? std::tuple(s->channel, s->volume, s->positional) : std::tuple(-2, -2, false);
    };
    EXPECT_EQ(settings("data/sounds/a.wav"), std::tuple(3, 70, false));
    EXPECT_EQ(settings("data/sounds/b.ogg"), std::tuple(-1, 100, true));
    EXPECT_EQ(sound->findId(8), sound->findId(2));
    for (int id : {5, 6, 7})
        EXPECT_EQ(sound->findId(id), -1) << id;
    EXPECT_EQ(sound->playIdAt(1, Vector(1000, 0), 0), 3) << "the first definition's channel wins";

    EXPECT_FALSE(sound->loadDefinitions("data/sounds/none.xml"));
    dir.write("broken.xml", "<sounds><sound id=");
    EXPECT_FALSE(sound->loadDefinitions("broken.xml"));
}

TEST_F(SoundTest, ShippedDefinitionsBindEveryIdTheGameUses)
{
    TempDir::run("ln -s '" + testGameDir() + "/data' '" + dir.path + "/data'");
    if (!std::ifstream("data/sounds/sounds.xml"))
        GTEST_SKIP() << "generated media not found in " << testGameDir();
    start();
    ASSERT_TRUE(sound->loadDefinitions("data/sounds/sounds.xml"));
    for (int id = 0; id <= 42; ++id)
        EXPECT_GE(sound->findId(id), 0) << "sound id " << id;
    // Pickups and weapon handling are heard at the player whatever the
    // position given; world sounds fade with distance.
    sound->update(Vector(0, 0));
    for (int id : {9, 10, 14, 16, 17, 18, 24, 25, 27, 29, 30}) {
        const int channel = sound->playIdAt(id, Vector(5000, 0), 0);
        ASSERT_GE(channel, 0) << id;
        EXPECT_EQ(mixer->volumes[channel], 128) << id;
        sound->stopChannel(channel);
    }
    for (int id : {0, 5, 6, 11, 19, 22, 32, 33, 37, 41}) {
        const int channel = sound->playIdAt(id, Vector(5000, 0), 0);
        ASSERT_GE(channel, 10) << id;
        EXPECT_EQ(mixer->volumes[channel], 0) << id;
        sound->stopChannel(channel);
    }
}

}  // namespace
