#include "core/SaveInfo.h"

#include <sys/stat.h>
#include <tinyxml.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <fstream>
#include <set>

#include "core/Game.h"
#include "resources/FileOps.h"
#include "resources/ResourceManager.h"
#include "world/level/LevelLoader.h"

namespace {
// The root element's opening tag parsed on its own, so a file of any size
// costs one small read. False when the text holds no such tag.
bool parseOpeningTag(const std::string& head, const std::string& root, TiXmlDocument& document)
{
    const std::string open = "<" + root;
    size_t start = head.find(open);
    while (start != std::string::npos) {
        const char next = start + open.size() < head.size() ? head[start + open.size()] : '\0';
        if (next == '>' || next == '/' || std::isspace(static_cast<unsigned char>(next)))
            break;
        start = head.find(open, start + 1);
    }
    if (start == std::string::npos)
        return false;
    // Attribute values are written with '>' escaped, so the first one ends the tag.
    const size_t end = head.find('>', start);
    if (end == std::string::npos)
        return false;
    std::string tag = head.substr(start, end - start);
    if (tag.empty() || tag.back() != '/')
        tag += '/';
    tag += '>';
    document.Parse(tag.c_str());
    return !document.Error() && document.RootElement() && document.RootElement()->ValueStr() == root;
}

std::string readHead(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::string head(SaveInfo::headBytes, '\0');
    in.read(&head[0], static_cast<std::streamsize>(head.size()));
    head.resize(static_cast<size_t>(std::max<std::streamsize>(0, in.gcount())));
    return head;
}

std::string attribute(const TiXmlElement* e, const char* name)
{
    const char* value = e ? e->Attribute(name) : nullptr;
    return value ? value : "";
}
}

SaveInfo SaveInfo::read(const std::string& name)
{
    SaveInfo info;
    info.name = name;
    const std::string path = Game::savePath(name);
    struct stat file;
    if (::stat(path.c_str(), &file) == 0)
        info.written = file.st_mtime;
    if (name == quickSaveName)
        info.kind = Kind::quick;

    TiXmlDocument document;
    if (!parseOpeningTag(readHead(path), "save", document))
        return info;
    const TiXmlElement* save = document.RootElement();
    info.level = attribute(save, "currentlevel");
    info.readable = !info.level.empty();
    if (!info.readable)
        return info;
    info.title = attribute(save, "title");
    if (info.title.empty())
        info.title = levelTitle(info.level);
    double number = 0.0;
    // A file copied about keeps the time it was written, not the copy's.
    if (save->QueryDoubleAttribute("savedat", &number) == TIXML_SUCCESS && number > 0.0 && number < 1e15)
        info.written = static_cast<std::time_t>(number);
    if (save->QueryDoubleAttribute("playtime", &number) == TIXML_SUCCESS && number > 0.0 && number < 1e12)
        info.playSeconds = static_cast<long>(number);
    if (attribute(save, "checkpoint") == "true")
        info.kind = Kind::checkpoint;
    return info;
}

std::vector<SaveInfo> SaveInfo::listAll()
{
    std::set<std::string> files;
    FileOps::listFolder("saves", "*.xml", files);
    std::vector<SaveInfo> saves;
    for (const std::string& file : files) {
        const std::string name = file.substr(0, file.size() - 4);
        // Names a save command could not make are not the game's files.
        if (!Game::isSaveName(name))
            continue;
        saves.push_back(read(name));
    }
    std::stable_sort(saves.begin(), saves.end(),
                     [](const SaveInfo& a, const SaveInfo& b) { return a.written > b.written; });
    return saves;
}

std::string SaveInfo::levelTitle(const std::string& level)
{
    std::string text = ResourceManager::instance().readText(LevelLoader::resourcePath(LevelLoader::levelPath(level)));
    text.resize(std::min(text.size(), headBytes));
    TiXmlDocument document;
    if (parseOpeningTag(text, "level", document)) {
        const std::string title = attribute(document.RootElement(), "title");
        if (!title.empty())
            return title;
    }
    std::string name = level;
    if (!name.empty())
        name[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(name[0])));
    return name;
}

std::string SaveInfo::formatWritten(std::time_t when)
{
    std::tm local{};
    if (!localtime_r(&when, &local))
        return "";
    char text[32];
    return std::strftime(text, sizeof text, "%d %b %Y %H:%M", &local) ? text : "";
}

std::string SaveInfo::formatPlayTime(long seconds)
{
    seconds = std::max(0L, seconds);
    char text[32];
    if (seconds >= 3600)
        std::snprintf(text, sizeof text, "%ld:%02ld:%02ld", seconds / 3600, seconds / 60 % 60, seconds % 60);
    else
        std::snprintf(text, sizeof text, "%ld:%02ld", seconds / 60, seconds % 60);
    return text;
}

std::string SaveInfo::kindText(Kind kind)
{
    switch (kind) {
    case Kind::quick:
        return "Quick save";
    case Kind::checkpoint:
        return "Checkpoint";
    case Kind::player:
        break;
    }
    return "";
}
