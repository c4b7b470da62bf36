// The modes of the run loop that a timer or a source belongs to. Main thread.
#pragma once

#import <Foundation/Foundation.h>

#include <set>
#include <string>

namespace substitute {

// The modes that AppKit makes common: the default one, that of tracking and
// that of modal panels (NSRunLoopCommonModes, NSModalPanelRunLoopMode,
// NSEventTrackingRunLoopMode).
bool isCommonMode(NSString* mode);

class Modes {
public:
    void add(NSString* mode); // NSRunLoopCommonModes stands for all common ones
    void remove(NSString* mode);
    bool contains(NSString* mode) const;
    bool isEmpty() const { return m_names.empty(); }

private:
    std::set<std::string> m_names;
};

} // namespace substitute
