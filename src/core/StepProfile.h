#pragma once
// Where the time of each world step goes, for the timed demo: every step is
// one sample of six sections, and the summary gives each section's median,
// 99th percentile and worst step.
#include <array>
#include <string>
#include <vector>

class StepProfile {
public:
    enum Section { controls, thinks, collision, move, particles, drawing, sectionCount };

    struct Summary {
        double p50 = 0.0;  // milliseconds
        double p99 = 0.0;
        double max = 0.0;
    };

    static const char* sectionName(int section);

    // Opens a step's sample and starts its stopwatch.
    void startStep();
    // Charges the time since the last mark to `section`.
    void lap(Section section);
    // Closes the step's sample.
    void endStep();

    size_t steps() const { return samples.size(); }
    Summary summarise(Section section) const;
    // The world step (controls to move), with the particles when asked.
    Summary summariseWorld(bool withParticles) const;
    // The table the timed demo prints.
    std::string report(const std::string& title, double wallSeconds, bool drawn) const;

private:
    template <typename Pick>
    Summary summariseBy(Pick pick) const;

    using Sample = std::array<double, sectionCount>;
    std::vector<Sample> samples;
    Sample current{};
    double mark = 0.0;
};
