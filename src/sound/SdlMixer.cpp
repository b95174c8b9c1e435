#include "sound/SdlMixer.h"

#include <SDL.h>
#include <SDL_mixer.h>

#include <algorithm>
#include <climits>

SdlMixer::~SdlMixer()
{
    close();
    if (startedSubsystem && SDL_WasInit(SDL_INIT_AUDIO))
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

bool SdlMixer::open(int frequency, int channels, int bufferSize)
{
    // Audio is started here rather than with video, so a machine without a
    // usable sound driver still gets a window and a silent game.
    if (!SDL_WasInit(SDL_INIT_AUDIO)) {
        if (SDL_InitSubSystem(SDL_INIT_AUDIO) < 0)
            return false;
        startedSubsystem = true;
    }
    opened = Mix_OpenAudio(frequency, AUDIO_S16LSB, channels, bufferSize) == 0;
    return opened;
}

void SdlMixer::close()
{
    // Mix_OpenAudio counts its openings; close exactly as often as opened.
    if (opened)
        Mix_CloseAudio();
    opened = false;
}

bool SdlMixer::querySpec(Spec& spec) const
{
    int frequency = 0;
    Uint16 format = 0;
    int channels = 0;
    if (!opened || !Mix_QuerySpec(&frequency, &format, &channels))
        return false;
    spec.frequency = frequency;
    spec.format = format;
    spec.channels = channels;
    return true;
}

int SdlMixer::allocateChannels(int count) { return Mix_AllocateChannels(count); }
int SdlMixer::reserveChannels(int count) { return Mix_ReserveChannels(count); }
int SdlMixer::groupChannels(int from, int to, int tag) { return Mix_GroupChannels(from, to, tag); }

Mix_Chunk* SdlMixer::decode(const char* bytes, std::size_t size)
{
    if (!opened || !bytes || size > static_cast<std::size_t>(INT_MAX))
        return nullptr;
    SDL_RWops* source = SDL_RWFromConstMem(bytes, static_cast<int>(size));
    if (!source)
        return nullptr;
    return Mix_LoadWAV_RW(source, 1);
}

void SdlMixer::freeChunk(Mix_Chunk* chunk)
{
    if (chunk)
        Mix_FreeChunk(chunk);
}

int SdlMixer::playChannel(int channel, Mix_Chunk* chunk, int loops)
{
    return opened ? Mix_PlayChannelTimed(channel, chunk, loops, -1) : -1;
}

void SdlMixer::haltChannel(int channel)
{
    if (opened)
        Mix_HaltChannel(channel);
}

void SdlMixer::setChannelVolume(int channel, int volume)
{
    if (opened)
        Mix_Volume(channel, volume);
}

bool SdlMixer::isPlaying(int channel) const { return opened && Mix_Playing(channel) != 0; }

void SdlMixer::setPanning(int channel, int left, int right)
{
    if (opened)
        Mix_SetPanning(channel, static_cast<Uint8>(std::clamp(left, 0, 255)),
                       static_cast<Uint8>(std::clamp(right, 0, 255)));
}

Mix_Music* SdlMixer::loadMusic(const char* bytes, std::size_t size)
{
    if (!opened || !bytes || size > static_cast<std::size_t>(INT_MAX))
        return nullptr;
    SDL_RWops* source = SDL_RWFromConstMem(bytes, static_cast<int>(size));
    if (!source)
        return nullptr;
    // The stream keeps reading from `source` while it plays; freeing the
    // music frees the source.
    return Mix_LoadMUSType_RW(source, MUS_OGG, 1);
}

void SdlMixer::freeMusic(Mix_Music* music)
{
    if (music)
        Mix_FreeMusic(music);
}

bool SdlMixer::fadeInMusic(Mix_Music* music, int loops, int ms)
{
    return opened && music && Mix_FadeInMusic(music, loops, ms) == 0;
}

void SdlMixer::fadeOutMusic(int ms)
{
    if (opened)
        Mix_FadeOutMusic(ms);
}

void SdlMixer::haltMusic()
{
    if (opened)
        Mix_HaltMusic();
}

bool SdlMixer::isMusicPlaying() const { return opened && Mix_PlayingMusic() != 0; }

void SdlMixer::pauseMusic()
{
    if (opened)
        Mix_PauseMusic();
}

void SdlMixer::resumeMusic()
{
    if (opened)
        Mix_ResumeMusic();
}

void SdlMixer::setMusicVolume(int volume)
{
    if (opened)
        Mix_VolumeMusic(volume);
}

std::string SdlMixer::lastError() const
{
    const char* text = Mix_GetError();
    return text ? text : "";
}
