#pragma once
// Small helpers the world tests share: a box body made ready for the index,
// a body's saved keys, stdout captured around an action, files from disk.
#include <gtest/gtest.h>
#include <tinyxml.h>

#include <dirent.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "world/body/Body.h"

namespace worldtest {
// A w x h box centred on (x, y) with its bounds up to date; mass 0 is immovable.
inline void shapeBox(Body& b, float x, float y, float w, float h, float mass = 0.0f)
{
    b.setPosition(Vector(x, y));
    b.makeRectangle(w, h);
    b.setMass(mass);
    b.updateBounds();
}

using SavedKeys = std::vector<std::pair<std::string, std::string>>;

// The keys and values a saved game writes for the body, in order.
inline SavedKeys savedKeys(Body& body)
{
    TiXmlElement element("state");
    body.writeState(&element);
    SavedKeys keys;
    for (const TiXmlAttribute* a = element.FirstAttribute(); a; a = a->Next())
        keys.emplace_back(a->Name(), a->Value());
    return keys;
}

inline std::string captured(const std::function<void()>& action)
{
    std::fflush(stdout);
    ::testing::internal::CaptureStdout();
    action();
    std::fflush(stdout);
    return ::testing::internal::GetCapturedStdout();
}

inline std::string readFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

// The directory's files, hidden ones left out, in name order; empty when it
// cannot be read.
inline std::vector<std::string> filesIn(const std::string& dir)
{
    std::vector<std::string> names;
    if (DIR* listing = opendir(dir.c_str())) {
        while (const dirent* entry = readdir(listing))
            if (entry->d_name[0] != '.')
                names.push_back(entry->d_name);
        closedir(listing);
    }
    std::sort(names.begin(), names.end());
    return names;
}
}
