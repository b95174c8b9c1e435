#include "sound/Sound.h"

#include <tinyxml.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "console/CommandRegistry.h"
#include "console/ConsolePrint.h"
#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "resources/ResourceManager.h"
#include "sound/SdlMixer.h"

namespace {
// AUDIO_S16LSB, the only format the device is opened with.
constexpr int requestedFormat = 0x8010;

// Used when the configured settings are unusable and nothing better is known.
constexpr int defaultFrequency = 44100;
constexpr int defaultChannels = 2;
constexpr int defaultBufferSize = 1024;

const char* const volumeRangeMessage = "Volume must be between 0 and 128";

// Absurd values would otherwise wrap inside SDL's 16-bit fields or ask the
// driver for something it cannot do.
bool settingsInRange(int frequency, int channels, int bufferSize)
{
    return frequency >= 8000 && frequency <= 192000 && channels >= 1 && channels <= 2 && bufferSize >= 64 &&
           bufferSize <= 16384;
}

// A definition id: a whole non-negative decimal number.
bool parseId(const char* text, int& id)
{
    if (!text || !*text)
        return false;
    char* end = nullptr;
    errno = 0;
    const long value = std::strtol(text, &end, 10);
    if (errno != 0 || *end != '\0' || value < 0 || value > INT_MAX)
        return false;
    id = static_cast<int>(value);
    return true;
}

int intAttribute(const TiXmlElement& element, const char* name, int fallback)
{
    const char* text = element.Attribute(name);
    return text ? GameVar::parseInt(text) : fallback;
}
}

Sound::Sound() : Sound(std::make_unique<SdlMixer>()) {}

Sound::Sound(std::unique_ptr<IMixer> m) : mixer(std::move(m))
{
    for (auto& channel : channels)
        channel = std::make_unique<SoundChannelInfo>();
}

Sound::~Sound()
{
    releaseMusic();
    // The registry may already have deleted the variables (shutdown order).
    if (volumeVar && findVar("volume") == volumeVar)
        volumeVar->onChange = nullptr;
    if (musicVolumeVar && findVar("musicvolume") == musicVolumeVar)
        musicVolumeVar->onChange = nullptr;
}

void Sound::bindVariables()
{
    if (volumeVar)
        return;
    volumeVar = getVar("volume");
    bufferVar = getVar("soundbuffer");
    channelsVar = getVar("soundchannels");
    frequencyVar = getVar("soundfrequency");
    volumeVar->onChange = [this] { applyVolume(); };
    // Optional: without it the music plays at full volume.
    musicVolumeVar = findVar("musicvolume");
    if (musicVolumeVar)
        musicVolumeVar->onChange = [this] { applyMusicVolume(); };
}

int Sound::intOf(const GameVar* var) const { return var ? var->intValue : 0; }

bool Sound::openAudio()
{
    bindVariables();
    // The stream dies with the device; its track starts again on the new one.
    if (music && !musicPending) {
        pendingBytes = std::move(musicBytes);
        pendingSize = musicSize;
        musicPending = true;
    }
    releaseMusic();
    mixer->close();
    ready = false;
    playingCount = 0;
    for (auto& channel : channels) {
        channel->playing = false;
        channel->panLeft = channel->panRight = 255;
    }
    std::printf("Audio Format: %d\n", requestedFormat);

    const int frequency = intOf(frequencyVar);
    const int channelsWanted = intOf(channelsVar);
    const int bufferSize = intOf(bufferVar);
    if (!settingsInRange(frequency, channelsWanted, bufferSize)) {
        std::printf("Sound init Failed: unusable settings: Freq: %d : Channels: %d : Buffer Size: %d\n", frequency,
                    channelsWanted, bufferSize);
        return false;
    }
    if (!mixer->open(frequency, channelsWanted, bufferSize)) {
        std::printf("Sound init Failed: %s\n", mixer->lastError().c_str());
        return false;
    }
    mixer->allocateChannels(channelCount);
    const int reserved = mixer->reserveChannels(reservedChannels);
    if (reserved != reservedChannels)
        std::printf("Audio: Tried to reserve 9 channels, but could only reserve %d\n", reserved);
    const int grouped = mixer->groupChannels(0, reservedChannels - 1, 0);
    if (grouped != reservedChannels)
        std::printf("Audio: Tried to group channel 0-8 = 9 channels, but only grouped %d\n", grouped);
    IMixer::Spec spec;
    if (mixer->querySpec(spec))
        std::printf("Audio: opened at %d Hz, %d channels, format %d\n", spec.frequency, spec.channels, spec.format);
    ready = true;
    decodeSamples();
    applyVolume();
    startPendingMusic();
    return true;
}

bool Sound::initialise()
{
    bindVariables();
    if (!openAudio() &&
        !settingsInRange(intOf(frequencyVar), intOf(channelsVar), intOf(bufferVar))) {
        std::printf("Falling back to the default sound settings\n");
        frequencyVar->setInt(defaultFrequency);
        channelsVar->setInt(defaultChannels);
        bufferVar->setInt(defaultBufferSize);
        openAudio();
    }
    registerCommands();
    if (ready)
        setVolume(volumeVar->intValue);
    return ready;
}

void Sound::closeAudio()
{
    releaseMusic();
    mixer->close();
    ready = false;
}

void Sound::playTestSound() { play(testSoundPath, 0, 100); }

int Sound::playAt(const Vector& position, int sampleIndex, int loops)
{
    return playOnChannelAt(-1, position, sampleIndex, loops);
}

int Sound::playAt(const Vector& position, const std::string& name, int loops, int volume)
{
    int index = findSound(name);
    if (index < 0)
        index = loadSample(-1, -1, volume, false, name);
    return playAt(position, index, loops);
}

int Sound::playOnChannelAt(int channel, const Vector& position, int sampleIndex, int loops)
{
    if (!playable(sampleIndex) || playingCount > positionalPlayLimit || channel < -1 || channel >= channelCount)
        return -1;
    return start(channel, sampleIndex, loops, &position);
}

int Sound::playOnChannelAt(int channel, const Vector& position, const std::string& name, int loops, int volume)
{
    int index = findSound(name);
    if (index < 0)
        index = loadSample(-1, channel, volume, true, name);
    return playOnChannelAt(channel, position, index, loops);
}

int Sound::play(int sampleIndex, int loops)
{
    if (!playable(sampleIndex) || playingCount > plainPlayLimit)
        return -1;
    return start(samples[sampleIndex]->channel, sampleIndex, loops, nullptr);
}

int Sound::play(const std::string& name, int loops, int volume)
{
    int index = findSound(name);
    if (index < 0)
        index = loadSample(-1, -1, volume, false, name);
    return play(index, loops);
}

int Sound::playIdAt(int id, const Vector& position, int loops)
{
    const int index = findId(id);
    if (index < 0)
        return -1;
    return playOnChannelAt(samples[index]->channel, position, index, loops);
}

int Sound::playIdOnChannelAt(int id, int channel, const Vector& position, int loops)
{
    return playOnChannelAt(channel, position, findId(id), loops);
}

int Sound::playId(int id, int loops) { return play(findId(id), loops); }

bool Sound::playable(int sampleIndex) const
{
    return ready && sampleIndex >= 0 && sampleIndex < getSampleCount() && samples[sampleIndex]->getChunk();
}

int Sound::start(int channel, int sampleIndex, int loops, const Vector* position)
{
    const SoundSample& sample = *samples[sampleIndex];
    const int used = mixer->playChannel(channel, sample.getChunk(), loops);
    if (!validChannel(used))
        return -1;
    SoundChannelInfo& info = *channels[used];
    info.playing = true;
    info.positional = sample.positional;
    info.volume = sample.volume;
    info.sampleIndex = sampleIndex;
    info.position = position ? *position : Vector();
    info.looping = loops != 0;
    // Set at once rather than at the next update, so a distant sound does
    // not start with a burst at full volume.
    mixer->setChannelVolume(used, channelVolume(info));
    // SDL_mixer drops a channel's panning when its last sound ended, which
    // may have happened since the last update.
    info.panLeft = info.panRight = -1;
    applyPan(used, info);
    return used;
}

int Sound::channelVolume(const SoundChannelInfo& info) const
{
    float volume = static_cast<float>(masterVolume);
    if (info.positional) {
        const float distance = info.position.distance2D(listenerPosition);
        volume = std::round((1.0f - distance / fadeDistance) * static_cast<float>(masterVolume)) / 100.0f *
                 static_cast<float>(info.volume);
    }
    // Also catches NaN from a position that went wrong.
    if (!(volume > 0.0f))
        return 0;
    return volume >= maxVolume ? maxVolume : static_cast<int>(volume);
}

Sound::Pan Sound::panFor(const Vector& position, const Vector& listener)
{
    const float side = (position.x - listener.x) / panDistance;
    if (!std::isfinite(side))
        return {};
    const float p = std::clamp(side, -1.0f, 1.0f);
    const int far = static_cast<int>(std::lround(255.0f * (1.0f - panDepth * std::fabs(p))));
    if (p > 0.0f)
        return {far, 255};
    return {255, far};
}

void Sound::applyPan(int channel, SoundChannelInfo& info)
{
    const Pan pan = info.positional ? panFor(info.position, listenerPosition) : Pan{};
    if (pan == Pan{info.panLeft, info.panRight})
        return;
    mixer->setPanning(channel, pan.left, pan.right);
    info.panLeft = pan.left;
    info.panRight = pan.right;
}

void Sound::setVolume(int volume)
{
    if (volume < 0 || volume > maxVolume) {
        conPrint(volumeRangeMessage);
        return;
    }
    bindVariables();
    volumeVar->setInt(volume);
}

void Sound::applyVolume()
{
    const int wanted = volumeVar ? volumeVar->intValue : masterVolume;
    if (wanted < 0 || wanted > maxVolume) {
        // "set volume 500" is refused like "setvolume 500".
        conPrint(volumeRangeMessage);
        volumeVar->setInt(lastVolume);
        return;
    }
    masterVolume = lastVolume = wanted;
    if (ready)
        mixer->setChannelVolume(-1, masterVolume);
}

int Sound::getVolume() const
{
    if (!ready)
        return 0;
    return volumeVar ? volumeVar->intValue : masterVolume;
}

bool Sound::restart(int frequency, int channelCountWanted, int bufferSize)
{
    bindVariables();
    const int oldFrequency = frequencyVar->intValue;
    const int oldChannels = channelsVar->intValue;
    const int oldBufferSize = bufferVar->intValue;
    frequencyVar->setInt(frequency);
    channelsVar->setInt(channelCountWanted);
    bufferVar->setInt(bufferSize);
    if (openAudio())
        return true;
    std::printf("Couldnt init sound with: Freq: %d : Channels: %d : Buffser Size: %d\n", frequency,
                channelCountWanted, bufferSize);
    std::printf("Falling back to last known safe: Freq%d : Channels: %d : Buffser Size: %d\n", oldFrequency,
                oldChannels, oldBufferSize);
    frequencyVar->setInt(oldFrequency);
    channelsVar->setInt(oldChannels);
    bufferVar->setInt(oldBufferSize);
    return openAudio();
}

void Sound::configure(int volume, int, int frequency, int channelCountWanted, int bufferSize)
{
    if (restart(frequency, channelCountWanted, bufferSize))
        setVolume(volume);
}

void Sound::getSettings(int& volume, int& unused, int& frequency, int& channelCountOut, int& bufferSize) const
{
    volume = intOf(volumeVar);
    unused = 0;
    frequency = intOf(frequencyVar);
    channelCountOut = intOf(channelsVar);
    bufferSize = intOf(bufferVar);
}

int Sound::findSound(const std::string& name) const
{
    const auto found = nameMap.find(name);
    return found == nameMap.end() ? -1 : found->second;
}

int Sound::findId(int id) const
{
    const auto found = idMap.find(id);
    return found == idMap.end() ? -1 : found->second;
}

SoundSample* Sound::getSample(const std::string& name) const
{
    const int index = findSound(name);
    return index < 0 ? nullptr : samples[index].get();
}

int Sound::loadSound(const std::string& name) { return loadSample(-1, -1, 100, false, name); }

void Sound::registerSound(int id, const std::string& name) { registerSound(id, -1, 100, false, name); }

void Sound::registerSound(int id, int channel, int volume, bool positional, const std::string& name)
{
    int index = findSound(name);
    if (index < 0)
        index = loadSample(id, channel, volume, positional, name);
    if (index >= 0)
        idMap[id] = index;
}

int Sound::loadSample(int id, int channel, int volume, bool positional, const std::string& path)
{
    std::size_t size = 0;
    bool error = false;
    const std::unique_ptr<char[]> bytes =
        path.empty() ? nullptr : ResourceManager::instance().getBytes(path, size, error);
    if (!bytes || error) {
        std::printf("Couldn't find sound: %s\n", path.c_str());
        return -1;
    }
    auto sample = std::make_unique<SoundSample>(*mixer);
    sample->id = id;
    sample->channel = channel;
    sample->volume = volume;
    sample->positional = positional;
    sample->path = path;
    // Without a device the sample waits undecoded until one opens.
    if (ready) {
        Mix_Chunk* chunk = mixer->decode(bytes.get(), size);
        if (!chunk) {
            std::printf("Couldn't decode sound: %s: %s\n", path.c_str(), mixer->lastError().c_str());
            return -1;
        }
        sample->setChunk(chunk);
    }
    samples.push_back(std::move(sample));
    const int index = getSampleCount() - 1;
    nameMap[path] = index;
    return index;
}

bool Sound::decode(SoundSample& sample)
{
    std::size_t size = 0;
    bool error = false;
    const std::unique_ptr<char[]> bytes = ResourceManager::instance().getBytes(sample.path, size, error);
    Mix_Chunk* chunk = (bytes && !error) ? mixer->decode(bytes.get(), size) : nullptr;
    if (!chunk)
        std::printf("Couldn't decode sound: %s: %s\n", sample.path.c_str(), mixer->lastError().c_str());
    sample.setChunk(chunk);
    return chunk != nullptr;
}

void Sound::decodeSamples()
{
    IMixer::Spec spec;
    if (!mixer->querySpec(spec))
        return;
    // Chunks are converted to the device format when decoded; after a change
    // of rate or channels they would play at the wrong pitch.
    const bool formatChanged = spec != decodedSpec;
    for (auto& sample : samples) {
        if (formatChanged || !sample->getChunk())
            decode(*sample);
    }
    decodedSpec = spec;
}

bool Sound::loadDefinitions(const std::string& path)
{
    TiXmlDocument document;
    const TiXmlElement* root = nullptr;
    if (ResourceManager::instance().loadDocument(document, path))
        root = document.RootElement();
    if (!root) {
        std::printf("Could not load sound defs file: %s\n", path.c_str());
        return false;
    }
    for (const TiXmlElement* def = root->FirstChildElement(); def; def = def->NextSiblingElement()) {
        const char* idText = def->Attribute("id");
        const char* file = def->Attribute("path");
        int id = -1;
        if (!parseId(idText, id)) {
            std::printf("%s: sound definition with bad id \"%s\" skipped\n", path.c_str(), idText ? idText : "");
            continue;
        }
        if (!file || !*file) {
            std::printf("%s: sound definition %d has no path; skipped\n", path.c_str(), id);
            continue;
        }
        int channel = intAttribute(*def, "channel", -1);
        if (channel < -1 || channel >= channelCount) {
            std::printf("%s: sound definition %d names channel %d; it takes the first free one\n", path.c_str(), id,
                        channel);
            channel = -1;
        }
        const int volume = std::clamp(intAttribute(*def, "volume", 100), 0, 100);
        const char* positional = def->Attribute("positional");
        if (findId(id) >= 0)
            std::printf("%s: sound id %d is defined again; the later definition wins\n", path.c_str(), id);
        registerSound(id, channel, volume, positional && std::string(positional) == "true", file);
    }
    return true;
}

void Sound::update(const Vector& listener)
{
    if (!ready)
        return;
    listenerPosition = listener;
    playingCount = 0;
    for (int i = 0; i < channelCount; ++i) {
        SoundChannelInfo& info = *channels[i];
        mixer->setChannelVolume(i, channelVolume(info));
        info.playing = mixer->isPlaying(i);
        if (info.playing) {
            ++playingCount;
            applyPan(i, info);
        } else {
            // A finished channel is back in the centre.
            info.panLeft = info.panRight = 255;
        }
    }
    startPendingMusic();
}

bool Sound::playMusic(const std::string& path)
{
    if (path == musicPath && !path.empty())
        return true;
    std::size_t size = 0;
    bool error = false;
    std::unique_ptr<char[]> bytes = path.empty() ? nullptr : ResourceManager::instance().getBytes(path, size, error);
    if (!bytes || error) {
        std::printf("Couldn't find music: %s\n", path.c_str());
        stopMusic();
        return false;
    }
    musicPath = path;
    pendingBytes = std::move(bytes);
    pendingSize = size;
    musicPending = true;
    if (ready && mixer->isMusicPlaying()) {
        // A paused stream would never finish fading.
        if (musicPaused)
            mixer->haltMusic();
        else
            mixer->fadeOutMusic(musicFadeMs);
    }
    startPendingMusic();
    return true;
}

void Sound::startPendingMusic()
{
    if (!ready || !musicPending || mixer->isMusicPlaying())
        return;
    releaseMusic();
    musicPending = false;
    Mix_Music* loaded = mixer->loadMusic(pendingBytes.get(), pendingSize);
    if (!loaded) {
        std::printf("Couldn't play music: %s: %s\n", musicPath.c_str(), mixer->lastError().c_str());
        pendingBytes.reset();
        return;
    }
    music = loaded;
    musicBytes = std::move(pendingBytes);
    musicSize = pendingSize;
    applyMusicVolume();
    mixer->fadeInMusic(music, -1, musicFadeMs);
    if (musicPaused)
        mixer->pauseMusic();
}

void Sound::stopMusic()
{
    musicPath.clear();
    musicPending = false;
    pendingBytes.reset();
    if (ready && mixer->isMusicPlaying()) {
        if (musicPaused)
            mixer->haltMusic();
        else
            mixer->fadeOutMusic(musicFadeMs);
    }
}

void Sound::pauseMusic(bool paused)
{
    if (paused == musicPaused)
        return;
    musicPaused = paused;
    if (!ready || !music)
        return;
    if (paused)
        mixer->pauseMusic();
    else
        mixer->resumeMusic();
}

void Sound::releaseMusic()
{
    if (!music)
        return;
    mixer->haltMusic();
    mixer->freeMusic(music);
    music = nullptr;
    musicBytes.reset();
}

void Sound::applyMusicVolume()
{
    if (ready)
        mixer->setMusicVolume(musicVolumeVar ? std::clamp(musicVolumeVar->intValue, 0, maxVolume) : maxVolume);
}

void Sound::stopChannel(int channel)
{
    if (!validChannel(channel))
        return;
    channels[channel]->playing = false;
    channels[channel]->panLeft = channels[channel]->panRight = 255;
    if (ready)
        mixer->haltChannel(channel);
}

void Sound::registerCommands()
{
    registerCommand("play a sound", "playsound", [this] {
        const CommandRegistry& registry = CommandRegistry::instance();
        const std::string name = registry.argumentCount > 0 ? registry.arg(0) : std::string(testSoundPath);
        if (play(name, 0, 100) < 0)
            conPrint("Could not play " + name);
    });
    registerCommand("sets the volume", "setvolume", [this] {
        const CommandRegistry& registry = CommandRegistry::instance();
        if (registry.argumentCount > 0)
            setVolume(GameVar::parseInt(registry.arg(0)));
    });
    const auto stepVolume = [this](int direction) {
        const CommandRegistry& registry = CommandRegistry::instance();
        const long long step = registry.argumentCount > 0 ? GameVar::parseInt(registry.arg(0)) : 1;
        const long long wanted = static_cast<long long>(getVolume()) + direction * step;
        setVolume(static_cast<int>(std::clamp<long long>(wanted, 0, maxVolume)));
    };
    registerCommand("increase the volume", "volumeup", [stepVolume] { stepVolume(1); });
    registerCommand("decrease the volume", "volumedown", [stepVolume] { stepVolume(-1); });
    // Beyond the basic set: for placing and hearing world sounds while testing levels.
    registerCommand("play a sound at x y (the player's position without them): file [loops] [x y]",
                    "playsoundat", [this] {
                        const CommandRegistry& registry = CommandRegistry::instance();
                        if (registry.argumentCount < 1) {
                            conPrint("usage: playsoundat <file> [loops] [x y]");
                            return;
                        }
                        const int loops = registry.argumentCount > 1 ? GameVar::parseInt(registry.arg(1)) : 0;
                        Vector position = listenerPosition;
                        if (registry.argumentCount > 3)
                            position = Vector(GameVar::parseFloat(registry.arg(2)),
                                              GameVar::parseFloat(registry.arg(3)));
                        if (playOnChannelAt(-1, position, registry.arg(0), loops, 100) < 0)
                            conPrint("Could not play " + registry.arg(0));
                    });
    registerCommand("stop every sound", "stopsounds", [this] {
        for (int channel = 0; channel < channelCount; ++channel)
            stopChannel(channel);
    });
    registerCommand("restart the sound system", "soundrestart", [this] {
        conPrint(openAudio() ? "Sound restarted" : "Sound could not be restarted; see outputlog.txt");
    });
}
