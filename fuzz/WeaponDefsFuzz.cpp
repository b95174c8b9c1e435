// libFuzzer target: arbitrary bytes as the weapon definitions file, then
// every weapon built with its row applied and given a few shots without a
// world, so hostile numbers meet the weapons' own arithmetic too.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "gameplay/items/Inventory.h"
#include "gameplay/weapons/WeaponDefinitions.h"
#include "resources/ResourceManager.h"
#include "FuzzScratch.h"

static char scratch[] = "/tmp/bqweaponfuzzXXXXXX";

static bool setUp()
{
    fuzzscratch::enter(scratch);
    ResourceManager::instance().clearArchives();
    return true;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    static const bool ready = setUp();
    (void)ready;
    std::srand(1);
    fuzzscratch::writeInput("weapons.xml", data, size);
    WeaponDefinitions::clear();
    WeaponDefinitions::load("weapons.xml");
    Inventory inventory;
    for (int id = 1; id <= 10; ++id)
        inventory.own(id);
    inventory.initialise();
    inventory.giveAllAmmo(false);
    for (int id = 1; id <= 11; ++id)
        for (float t = 0.0f; t < 3000.0f; t += 500.0f)
            inventory.fire(nullptr, Vector(), Vector(1.0f, 0.0f), t, id);
    return 0;
}
