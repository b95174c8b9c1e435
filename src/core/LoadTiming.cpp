// The start-up and level-change times, and this process's age read from /proc.
#include "core/LoadTiming.h"

#include <time.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

namespace {
std::string milliseconds(double seconds)
{
    return std::to_string(std::lround(seconds * 1000.0)) + " ms";
}
}

std::optional<std::string> LoadTiming::frameShown(double now, double processAge, bool menu)
{
    if (startupReported)
        return std::nullopt;
    startupReported = true;
    std::string line = std::string("Start-up: first ") + (menu ? "menu " : "") + "frame ";
    if (processAge >= 0.0)
        line += milliseconds(processAge) + " after the process started";
    else if (initStart >= 0.0)
        line += milliseconds(now - initStart) + " after game init began";
    else
        line += "shown";
    if (initStart >= 0.0 && initEnd >= initStart) {
        line += " (";
        if (initStartAge >= 0.0)
            line += "before init " + milliseconds(initStartAge) + ", ";
        line += "game init " + milliseconds(initEnd - initStart) + ")";
    }
    return line;
}

void LoadTiming::levelRequested(const std::string& name, double now, uint32_t frame)
{
    level = name;
    loaded = false;
    if (pending)
        return;
    pending = true;
    requestedAt = now;
    requestFrame = frame;
}

void LoadTiming::levelLoaded(double now)
{
    if (!pending)
        return;
    loaded = true;
    loadedAt = now;
}

std::optional<std::string> LoadTiming::levelShown(double now, uint32_t frame)
{
    if (!pending || !loaded)
        return std::nullopt;
    pending = false;
    return "Level change to " + level + ": first drawn step " + milliseconds(now - requestedAt) +
           " after the request (loading " + milliseconds(loadedAt - requestedAt) + ", " +
           std::to_string(frame - requestFrame) + " frames)";
}

double LoadTiming::processAgeSeconds()
{
    // Field 22 of /proc/self/stat is the start time in clock ticks since
    // boot; the command name (field 2) may hold spaces, so count from ')'.
    std::ifstream statFile("/proc/self/stat");
    std::string stat((std::istreambuf_iterator<char>(statFile)), std::istreambuf_iterator<char>());
    const size_t close = stat.rfind(')');
    if (close == std::string::npos)
        return -1.0;
    std::istringstream fields(stat.substr(close + 1));
    std::string field;
    for (int i = 3; i <= 22 && fields >> field; ++i) {
    }
    const long ticksPerSecond = sysconf(_SC_CLK_TCK);
    char* end = nullptr;
    const unsigned long long startTicks = std::strtoull(field.c_str(), &end, 10);
    timespec boot{};
    if (!fields || end == field.c_str() || ticksPerSecond <= 0 || clock_gettime(CLOCK_BOOTTIME, &boot) != 0)
        return -1.0;
    const double age = static_cast<double>(boot.tv_sec) + static_cast<double>(boot.tv_nsec) * 1e-9 -
                       static_cast<double>(startTicks) / static_cast<double>(ticksPerSecond);
    return age >= 0.0 ? age : -1.0;
}
