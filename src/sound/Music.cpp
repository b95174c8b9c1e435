#include "sound/Music.h"

#include <cctype>
#include <cstdio>

#include "resources/ResourceManager.h"
#include "sound/ISound.h"

bool Music::isTrackName(const std::string& name)
{
    if (name.empty() || name.size() > maxTrackNameLength)
        return false;
    for (const char c : name)
        if (!std::isalnum(static_cast<unsigned char>(c)) && c != '_' && c != '-')
            return false;
    return true;
}

std::string Music::wantedTrack(bool inCutscene, bool inLevel) const
{
    if (inCutscene)
        return cutsceneTrack;
    return inLevel ? levelTrack : std::string(menuTrack);
}

void Music::update(ISound& sound, bool inCutscene, bool inLevel) { select(sound, wantedTrack(inCutscene, inLevel)); }

void Music::select(ISound& sound, const std::string& wanted)
{
    if (chosen && wanted == track)
        return;
    chosen = true;
    track = wanted;
    playing = false;
    if (wanted.empty()) {
        std::printf("Music: silence\n");
        sound.stopMusic();
        return;
    }
    // Looked up here rather than left to the sound system, so a missing
    // track is found with or without an audio device.
    const std::string path = trackPath(wanted);
    std::size_t size = 0;
    bool error = false;
    if (!isTrackName(wanted) || !ResourceManager::instance().getBytes(path, size, error) || error) {
        std::printf("Music: no track \"%s\" (%s); playing silence\n", wanted.c_str(), path.c_str());
        sound.stopMusic();
        return;
    }
    std::printf("Music: %s\n", wanted.c_str());
    sound.playMusic(path);
    playing = true;
}
