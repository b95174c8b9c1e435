#pragma once
// What the save menus show about a save game without loading it: its level
// and that level's title, when it was written, how long the run had been
// played, and whether it was a quick save or a checkpoint's. Only the
// opening tag of each file is read, so long lists stay quick.
#include <ctime>
#include <string>
#include <vector>

class SaveInfo {
public:
    enum class Kind { player, quick, checkpoint };

    // The name F5 and F9 use.
    static constexpr const char* quickSaveName = "quicksave";
    // Bytes read from the front of a file to find its opening tag.
    static constexpr size_t headBytes = 4096;

    std::string name;
    std::string level;
    // The level's title, or its name when it has none; "" for a damaged file.
    std::string title;
    std::time_t written = 0;
    long playSeconds = 0;
    Kind kind = Kind::player;
    // False when the file's opening tag could not be read.
    bool readable = false;

    // Reads saves/<name>.xml from the working directory.
    static SaveInfo read(const std::string& name);
    // Every save under saves/, newest first (then by name).
    static std::vector<SaveInfo> listAll();

    // A level's title from the "title" attribute of its file's root element,
    // else the name with a capital first letter.
    static std::string levelTitle(const std::string& level);

    // "25 Nov 2026 17:04" in local time.
    static std::string formatWritten(std::time_t when);
    // "12:05", or "1:02:03" from an hour on.
    static std::string formatPlayTime(long seconds);
    // "Quick save", "Checkpoint" or "".
    static std::string kindText(Kind kind);
};
