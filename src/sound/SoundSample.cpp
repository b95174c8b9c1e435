#include "sound/SoundSample.h"

#include "sound/IMixer.h"

SoundSample::~SoundSample() { setChunk(nullptr); }

void SoundSample::setChunk(Mix_Chunk* decoded)
{
    if (chunk && chunk != decoded)
        mixer->freeChunk(chunk);
    chunk = decoded;
}
