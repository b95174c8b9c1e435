#pragma once
// Chooses what the music channel plays: the menu track at the menus, the
// cut-scene track under story pages, and in a level the track its skyinfo
// body names, or silence when it names none. Tracks are
// data/music/<track>.ogg; a missing one is reported once and plays as
// silence. The choice is the game's; the sound system only plays it, so
// the choice works (and is tested) with the null sound too.
#include <cstddef>
#include <string>

class ISound;

class Music {
public:
    static constexpr const char* menuTrack = "menu";
    static constexpr const char* cutsceneTrack = "cutscene";
    static constexpr std::size_t maxTrackNameLength = 32;

    static std::string trackPath(const std::string& track) { return "data/music/" + track + ".ogg"; }
    // Letters, digits, "_" and "-": a name never reaches outside data/music/.
    static bool isTrackName(const std::string& track);

    // Set by the level's skyinfo body as the level is built; "" clears it.
    void setLevelTrack(const std::string& track) { levelTrack = track; }
    const std::string& getLevelTrack() const { return levelTrack; }

    // The track for what is on screen now ("" for silence).
    std::string wantedTrack(bool inCutscene, bool inLevel) const;
    // Once per frame: asks the sound system for the wanted track when it
    // changed.
    void update(ISound& sound, bool inCutscene, bool inLevel);
    // Plays `track` ("" for silence) unless it is the one chosen already.
    void select(ISound& sound, const std::string& track);

    // The track chosen last, and whether it is playing (false for silence
    // and for a track that could not be found).
    const std::string& getTrack() const { return track; }
    bool isPlaying() const { return playing; }

private:
    std::string levelTrack;
    std::string track;
    bool chosen = false;
    bool playing = false;
};
