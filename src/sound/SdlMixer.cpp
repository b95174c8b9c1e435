#include "sound/SdlMixer.h"

#include <SDL.h>
#include <SDL_mixer.h>

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

std::string SdlMixer::lastError() const
{
    const char* text = Mix_GetError();
    return text ? text : "";
}
