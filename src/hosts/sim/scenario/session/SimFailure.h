// What ends a scenario early.
#pragma once

#include <stdexcept>

namespace haloric {

// The program did something wrong: an expectation or a checker failed.
class SimFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The scenario itself is wrong; the text names the place.
class SimScenarioError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A step names an application, a window or a screen that is not there (any more).
class SimUnknownName : public SimScenarioError {
public:
    using SimScenarioError::SimScenarioError;
};

} // namespace haloric
