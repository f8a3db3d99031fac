// One sample call of every effect member, sized to the image: shared by the contact sheet and
// the benchmark so both cover the same list.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <vips/vips8>

struct EffectSample {
    std::string name;  // the member
    std::string label; // the call as a script would write it
    std::function<vips::VImage(const vips::VImage&)> run;
};

// clipboard is the image Merge combines with the current one.
std::vector<EffectSample> effectSamples(const vips::VImage& clipboard);
