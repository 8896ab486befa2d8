/// @file
/// Makes a failing sequence of steps short enough to be read.

#ifndef CCL_TESTS_MODEL_SHRINKING_H
#define CCL_TESTS_MODEL_SHRINKING_H

#include <functional>
#include <vector>

#include "tests/model/steps.h"

/// The shortest sequence that is found, by leaving out steps and shortening texts, for which `fails` still says true.
std::vector<step> shrunk(std::vector<step> steps, std::function<bool(std::vector<step> const&)> const& fails);

#endif
