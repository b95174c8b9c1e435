// The shipped adventure followed as New Game plays it: the start level, each
// level's exits and the cut scenes between them. Every name on the way must
// be a file, every scene's pictures shipped, and the levels reached must
// between them place every body type a level can hold.
#include <gtest/gtest.h>

#include <tinyxml.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "../TestPaths.h"
#include "menus/Adventure.h"
#include "menus/CutScene.h"
#include "world/level/GameBodyFactory.h"
#include "world/level/LevelValues.h"

namespace {

bool fileExists(const std::string& path) { return std::ifstream(path).good(); }

struct Exit {
    std::string leveltarget;
    std::string targetspawn;
    bool iscutscene = false;
    std::string cutscene;
};

struct LevelFile {
    bool loaded = false;
    std::set<std::string> types;
    std::set<std::string> ids;
    std::vector<Exit> exits;
};

LevelFile readLevel(const std::string& path)
{
    LevelFile level;
    TiXmlDocument doc;
    if (!doc.LoadFile(path.c_str()))
        return level;
    level.loaded = true;
    const TiXmlElement* objects = doc.RootElement() ? doc.RootElement()->FirstChildElement("Objects") : nullptr;
    for (const TiXmlElement* p = objects ? objects->FirstChildElement("P") : nullptr; p;
         p = p->NextSiblingElement("P")) {
        const std::string type = attributeText(p, "type");
        level.types.insert(type);
        level.ids.insert(attributeText(p, "idname"));
        if (type != "levelchange")
            continue;
        Exit exit;
        const TiXmlElement* attrs = p->FirstChildElement("attributes");
        for (const TiXmlElement* a = attrs ? attrs->FirstChildElement("a") : nullptr; a;
             a = a->NextSiblingElement("a")) {
            const std::string name = attributeText(a, "name");
            const std::string value = attributeText(a, "value");
            if (sameName(name, "leveltarget"))
                exit.leveltarget = value;
            else if (sameName(name, "targetspawn"))
                exit.targetspawn = value;
            else if (sameName(name, "iscutscene"))
                exit.iscutscene = readBool(value);
            else if (sameName(name, "cutscene"))
                exit.cutscene = value;
        }
        level.exits.push_back(exit);
    }
    return level;
}

// Every page's pictures are shipped and its texts sit on the page.
void checkScene(const std::string& name, const CutScene& scene, std::vector<std::string>& problems)
{
    if (scene.pages.size() < 2)
        problems.push_back(name + ": a cut scene of fewer than two pages");
    for (const CutScene::Page& page : scene.pages) {
        std::vector<std::string> images{page.background};
        for (const auto& pic : page.pictures)
            images.push_back(pic.img);
        for (const std::string& image : images)
            if (!fileExists(testGameDir() + "/" + image))
                problems.push_back(name + ": missing picture " + image);
        for (const auto& t : page.texts)
            if (t.text.empty() || t.box.x + t.box.width > CutScene::pageWidth ||
                t.box.y + t.box.height > CutScene::pageHeight)
                problems.push_back(name + ": an empty text or one off the page");
    }
}

// The adventure walked from its start; problems name every missing file.
struct Walk {
    std::vector<std::string> levels;
    std::set<std::string> types;
    std::vector<std::string> problems;
    bool reachesMainMenu = false;
};

Walk walkAdventure(const std::string& root)
{
    Walk walk;
    Adventure adventure;
    testing::internal::CaptureStdout();
    const bool read = Adventure::load(root + "/data/adventures/brindlequay.xml", adventure);
    // Each level with the entry it is entered by ("" for its start point).
    std::vector<std::pair<std::string, std::string>> queue;
    auto readScene = [&](const std::string& from, const std::string& name, CutScene& scene) {
        if (!scene.load(root + "/" + CutScene::pathFor(name))) {
            walk.problems.push_back(from + " plays missing cut scene " + name);
            return false;
        }
        checkScene(name, scene, walk.problems);
        return true;
    };
    if (!read) {
        walk.problems.push_back("the adventure file does not load");
    } else {
        queue.emplace_back(adventure.startlevel, "");
        if (adventure.description.empty())
            walk.problems.push_back("the adventure has no description");
        CutScene opening;
        if (!adventure.cutscene.empty())
            readScene("the start", adventure.cutscene, opening);
    }
    while (!queue.empty()) {
        const auto [name, entry] = queue.front();
        queue.erase(queue.begin());
        const LevelFile level = readLevel(root + "/maps/" + name + ".xml");
        if (level.loaded && !entry.empty() && !level.ids.count(entry))
            walk.problems.push_back(name + ": entered at missing spawn " + entry);
        if (std::find(walk.levels.begin(), walk.levels.end(), name) != walk.levels.end())
            continue;
        walk.levels.push_back(name);
        if (!level.loaded) {
            walk.problems.push_back("missing level maps/" + name + ".xml");
            continue;
        }
        walk.types.insert(level.types.begin(), level.types.end());
        for (const Exit& exit : level.exits) {
            if (!exit.leveltarget.empty() && !fileExists(root + "/maps/" + exit.leveltarget + ".xml"))
                walk.problems.push_back(name + ": exit to missing level " + exit.leveltarget);
            if (!exit.iscutscene) {
                if (!exit.leveltarget.empty())
                    queue.emplace_back(exit.leveltarget, exit.targetspawn);
                continue;
            }
            CutScene scene;
            if (!readScene(name + ": exit", exit.cutscene, scene))
                continue;
            // The game follows the cut scene, but editors and tools read the
            // exit's own target: it must not point somewhere else.
            const std::string after = scene.onend == "level" ? scene.endLevel() : "";
            if (exit.leveltarget != after)
                walk.problems.push_back(name + ": exit names " + exit.leveltarget + " but its cut scene leads to " +
                                        (after.empty() ? "the menu" : after));
            if (scene.onend == "level")
                queue.emplace_back(scene.endLevel(), scene.endSpawn());
            else if (scene.onend == "mainmenu")
                walk.reachesMainMenu = true;
        }
    }
    testing::internal::GetCapturedStdout();
    return walk;
}

std::string joined(const std::vector<std::string>& names)
{
    std::string out;
    for (const std::string& n : names)
        out += (out.empty() ? "" : " ") + n;
    return out;
}

} // namespace

TEST(AdventureChain, RunsThroughThreeActsPlacingEveryBodyTypeAndNamingOnlyFilesThatExist)
{
    const Walk walk = walkAdventure(testSourceDir());
    EXPECT_TRUE(walk.problems.empty()) << joined(walk.problems);
    const std::vector<std::string> acts = {"quay",         "armoury",    "stores",    "signalhouse",
                                           "foundrygates", "foundryfloor", "blockyard", "rooftops",
                                           "serverhalls",  "destroyerlair"};
    EXPECT_EQ(joined(walk.levels), joined(acts));
    EXPECT_TRUE(walk.reachesMainMenu) << "no exit plays a cut scene that ends the adventure";

    const std::set<std::string> unplaceable = {"player",           "gib",
                                               "debugmoveable",    "grenadeprojectile",
                                               "rocketprojectile", "plasmapistolprojectile"};
    std::vector<std::string> missing;
    size_t placeable = 0;
    for (const std::string& type : GameBodyFactory::typeNames()) {
        if (unplaceable.count(type))
            continue;
        ++placeable;
        if (!walk.types.count(type))
            missing.push_back(type);
    }
    // The 87 of the type table, and the game's own shooting target.
    ASSERT_GE(placeable, 87u);
    EXPECT_TRUE(missing.empty()) << "not placed in any adventure level: " << joined(missing);
}
