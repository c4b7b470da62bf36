// The application of ContractWindow.mm, from outside: one process with one window. Main thread; each call waits for the
// answer.
#pragma once

#include "contract/ContractHost.h"

#import <Foundation/Foundation.h>

namespace haloric {

class ContractWindowProcess {
public:
    // Starts the application and waits until its window has a number.
    ContractWindowProcess();
    ~ContractWindowProcess(); // ends it
    ContractWindowProcess(const ContractWindowProcess&) = delete;
    ContractWindowProcess& operator=(const ContractWindowProcess&) = delete;

    ContractWindow window() const { return m_window; }

    // The window's frame after it, in screen space.
    Rect ask(const std::string& command);

private:
    void write(const std::string& line);
    std::string readLine();

    NSTask* m_task = [[NSTask alloc] init];
    NSPipe* m_commands = [NSPipe pipe];
    NSPipe* m_answers = [NSPipe pipe];
    std::string m_read;
    ContractWindow m_window;
};

} // namespace haloric
