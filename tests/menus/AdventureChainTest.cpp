// The shipped adventure followed as New Game plays it: the start level, each
// level's exits and the cut scenes between them. Every name on the way must
// be a file, every scene's pictures shipped, and the levels reached must
// between them place every body type a level can hold.
#include <gtest/gtest.h>

#include <tinyxml.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "../TestPaths.h"
#include "../resources/TempDir.h"
#include "menus/Adventure.h"
#include "menus/CutScene.h"
#include "world/level/GameBodyFactory.h"
#include "world/level/LevelValues.h"

namespace {

bool fileExists(const std::string& path) { return std::ifstream(path).good(); }

// A level's body types and ids, and each exit's attributes by lower-case name.
struct LevelFile {
    bool loaded = false;
    std::set<std::string> types;
    std::set<std::string> ids;
    std::vector<std::map<std::string, std::string>> exits;
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
        auto& exit = level.exits.emplace_back();
        const TiXmlElement* attrs = p->FirstChildElement("attributes");
        for (const TiXmlElement* a = attrs ? attrs->FirstChildElement("a") : nullptr; a;
             a = a->NextSiblingElement("a")) {
            std::string name = attributeText(a, "name");
            std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return std::tolower(c); });
            exit[name] = attributeText(a, "value");
        }
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

} // namespace

TEST(AdventureChain, RunsThroughThreeActsPlacingEveryBodyTypeAndNamingOnlyFilesThatExist)
{
    const std::string root = testSourceDir();
    std::vector<std::string> levels;
    std::set<std::string> types;
    std::vector<std::string> problems;
    bool reachesMainMenu = false;
    auto readScene = [&](const std::string& from, const std::string& name, CutScene& scene) {
        if (!scene.load(root + "/" + CutScene::pathFor(name))) {
            problems.push_back(from + " plays missing cut scene " + name);
            return false;
        }
        checkScene(name, scene, problems);
        return true;
    };
    stdoutOf([&] {
        Adventure adventure;
        ASSERT_TRUE(Adventure::load(root + "/data/adventures/brindlequay.xml", adventure));
        EXPECT_FALSE(adventure.description.empty());
        CutScene opening;
        if (!adventure.cutscene.empty())
            readScene("the start", adventure.cutscene, opening);
        // Each level with the entry it is entered by ("" for its start point).
        std::vector<std::pair<std::string, std::string>> queue{{adventure.startlevel, ""}};
        while (!queue.empty()) {
            const auto [name, entry] = queue.front();
            queue.erase(queue.begin());
            const LevelFile level = readLevel(root + "/maps/" + name + ".xml");
            if (level.loaded && !entry.empty() && !level.ids.count(entry))
                problems.push_back(name + ": entered at missing spawn " + entry);
            if (std::find(levels.begin(), levels.end(), name) != levels.end())
                continue;
            levels.push_back(name);
            if (!level.loaded)
                problems.push_back("missing level maps/" + name + ".xml");
            types.insert(level.types.begin(), level.types.end());
            for (auto exit : level.exits) {
                const std::string target = exit["leveltarget"];
                if (!target.empty() && !fileExists(root + "/maps/" + target + ".xml"))
                    problems.push_back(name + ": exit to missing level " + target);
                CutScene scene;
                if (!readBool(exit["iscutscene"])) {
                    if (!target.empty())
                        queue.emplace_back(target, exit["targetspawn"]);
                } else if (readScene(name + ": exit", exit["cutscene"], scene)) {
                    // The game follows the cut scene, but editors and tools read
                    // the exit's own target: it must not point somewhere else.
                    const std::string after = scene.onend == "level" ? scene.endLevel() : "";
                    if (target != after)
                        problems.push_back(name + ": exit names " + target + " but its cut scene leads to " +
                                           (after.empty() ? "the menu" : after));
                    if (scene.onend == "level")
                        queue.emplace_back(scene.endLevel(), scene.endSpawn());
                    reachesMainMenu = reachesMainMenu || scene.onend == "mainmenu";
                }
            }
        }
    });
    EXPECT_EQ(problems, std::vector<std::string>{});
    EXPECT_EQ(levels, (std::vector<std::string>{"quay", "armoury", "stores", "signalhouse", "foundrygates",
                                                "foundryfloor", "blockyard", "rooftops", "serverhalls",
                                                "destroyerlair"}));
    EXPECT_TRUE(reachesMainMenu) << "no exit plays a cut scene that ends the adventure";

    const std::set<std::string> unplaceable = {"player",           "gib",
                                               "debugmoveable",    "grenadeprojectile",
                                               "rocketprojectile", "plasmapistolprojectile"};
    std::vector<std::string> missing;
    size_t placeable = 0;
    for (const std::string& type : GameBodyFactory::typeNames()) {
        if (unplaceable.count(type))
            continue;
        ++placeable;
        if (!types.count(type))
            missing.push_back(type);
    }
    // The 87 of the type table, and the game's own shooting target.
    ASSERT_GE(placeable, 87u);
    EXPECT_EQ(missing, std::vector<std::string>{}) << "body types no adventure level places";
}
