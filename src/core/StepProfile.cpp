#include "core/StepProfile.h"

#include <algorithm>
#include <cstdio>

#include "core/Clock.h"
#include "core/Game.h"

const char* StepProfile::sectionName(int section)
{
    static const char* const names[sectionCount] = {"controls", "thinks", "collision", "move", "particles",
                                                    "drawing"};
    return section >= 0 && section < sectionCount ? names[section] : "";
}

void StepProfile::startStep()
{
    current.fill(0.0);
    mark = Clock::profileSeconds();
}

void StepProfile::lap(Section section)
{
    const double now = Clock::profileSeconds();
    current[section] += (now - mark) * 1000.0;
    mark = now;
}

void StepProfile::endStep() { samples.push_back(current); }

template <typename Pick>
StepProfile::Summary StepProfile::summariseBy(Pick pick) const
{
    Summary summary;
    if (samples.empty())
        return summary;
    std::vector<double> values;
    values.reserve(samples.size());
    for (const Sample& sample : samples)
        values.push_back(pick(sample));
    std::sort(values.begin(), values.end());
    // Nearest rank: the smallest value at or above that share of the steps.
    auto rank = [&values](double share) {
        size_t index = static_cast<size_t>(share * static_cast<double>(values.size()) + 0.999999);
        return values[std::min(values.size(), std::max<size_t>(index, 1)) - 1];
    };
    summary.p50 = rank(0.50);
    summary.p99 = rank(0.99);
    summary.max = values.back();
    return summary;
}

StepProfile::Summary StepProfile::summarise(Section section) const
{
    return summariseBy([section](const Sample& s) { return s[section]; });
}

StepProfile::Summary StepProfile::summariseWorld(bool withParticles) const
{
    return summariseBy([withParticles](const Sample& s) {
        return s[controls] + s[thinks] + s[collision] + s[move] + (withParticles ? s[particles] : 0.0);
    });
}

std::string StepProfile::report(const std::string& title, double wallSeconds, bool drawn) const
{
    char line[200];
    std::string out;
    const double fps = wallSeconds > 0.0 ? static_cast<double>(samples.size()) / wallSeconds : 0.0;
    std::snprintf(line, sizeof line, "%s: %zu steps in %.2f s, %.1f fps (drawing %s)\n", title.c_str(),
                  samples.size(), wallSeconds, fps, drawn ? "on" : "off");
    out += line;
    std::snprintf(line, sizeof line, "  %-22s %9s %9s %9s\n", "ms per step", "p50", "p99", "max");
    out += line;
    auto row = [&](const char* name, const Summary& s) {
        std::snprintf(line, sizeof line, "  %-22s %9.3f %9.3f %9.3f\n", name, s.p50, s.p99, s.max);
        out += line;
    };
    for (int section = 0; section < sectionCount; ++section)
        if (section != drawing || drawn)
            row(sectionName(section), summarise(static_cast<Section>(section)));
    row("world step", summariseWorld(false));
    const Summary both = summariseWorld(true);
    row("world step + particles", both);
    std::snprintf(line, sizeof line, "  p99 of world step + particles: %.1f%% of the %.0f ms step\n",
                  100.0 * both.p99 / (Game::stepSeconds * 1000.0), Game::stepSeconds * 1000.0);
    out += line;
    return out;
}
