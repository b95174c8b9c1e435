#pragma once
// One adventure a new game can start: its name, the level it opens on, a
// description for the "Choose Adventure" screen and, optionally, the cut
// scene played before that level. Read from the files of data/adventures/.
#include <string>
#include <vector>

class Adventure {
public:
    static constexpr const char* folder = "data/adventures";

    std::string file;
    std::string name;
    std::string startlevel;
    std::string description;
    // Played over the start level as soon as it loads; "" for none.
    std::string cutscene;

    // Reads one adventure file (root element "adventure"); false, with a
    // message, when it cannot be read or is not an adventure.
    static bool load(const std::string& path, Adventure& out);
    // Every adventure in data/adventures/ (disk and archive), by file name.
    static std::vector<Adventure> listAll();
};
