#pragma once
// Where the game's data is and where the player's files go. A game directory
// (the binary beside data/ or data.zip, as in build/game) that we may write
// to keeps everything together; an installed game (data under
// share/brindlequay beside bin/) or a read-only game directory writes under
// $XDG_DATA_HOME/brindlequay instead, in the same relative layout. The game
// runs with the write directory as its working directory and reads the data
// directory after it, so the player's scripts and levels come first.
#include <string>

class ResourceManager;

class GameDirectories {
public:
    // Where data is found relative to the binary once installed; set by the
    // build for this source file only.
    static const char* installedDataSuffix();

    // Decides the directories for a binary in `executableDir` started from
    // `workingDir`, with the given environment values (null when unset).
    // `writable` answers whether a directory can be written to (tests stand
    // in for the file system's answer, which is always yes for root).
    static GameDirectories resolve(const std::string& executableDir, const std::string& workingDir,
                                   const char* xdgDataHome, const char* home,
                                   bool (*writable)(const std::string&) = canWrite);
    // Whether this process may create files in the directory.
    static bool canWrite(const std::string& dir);
    // As above, for this process.
    static GameDirectories forThisProcess();

    // $XDG_DATA_HOME/brindlequay, or ~/.local/share/brindlequay when that is
    // unset or not absolute (as the XDG rules ask); "" with neither.
    static std::string userDirectory(const char* xdgDataHome, const char* home);
    // A directory that holds data/gamevars.xml or data.zip.
    static bool holdsGameData(const std::string& dir);
    // Creates the directory and its parents; true when it exists afterwards.
    static bool makeDirectories(const std::string& dir);

    // Creates the write directory with its data/ folder and makes it the
    // working directory; false (with a line on standard error) when either
    // fails, in which case the game stays where it was started.
    bool enter() const;
    // Lets the resource manager read the data directory (and its data.zip)
    // after the working directory, when the two differ.
    void addDataSearch(ResourceManager& resources) const;
    // One line for the log saying where the player's files go.
    std::string describe() const;

    const std::string& getDataDir() const { return dataDir; }
    const std::string& getWriteDir() const { return writeDir; }
    bool isSeparate() const { return dataDir != writeDir; }

private:
    std::string dataDir;   // the shipped data tree or data.zip
    std::string writeDir;  // outputlog.txt, data/config.txt, saves/, ...
};
