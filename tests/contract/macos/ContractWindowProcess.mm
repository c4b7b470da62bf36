#include "contract/macos/ContractWindowProcess.h"

#include <sstream>
#include <stdexcept>

namespace haloric {

ContractWindowProcess::ContractWindowProcess()
{
    m_task.executableURL = [NSURL fileURLWithPath:@HALORIC_CONTRACT_WINDOW];
    m_task.standardInput = m_commands;
    m_task.standardOutput = m_answers;
    if (![m_task launchAndReturnError:nil])
        throw std::runtime_error("the application of the contract tests cannot be started");
    std::istringstream answer(readLine());
    std::string ready;
    std::uint32_t number = 0;
    answer >> ready >> number;
    m_window = {ProcessID{m_task.processIdentifier}, WindowNumber{number}};
}

ContractWindowProcess::~ContractWindowProcess()
{
    [m_task terminate];
    [m_task waitUntilExit];
}

Rect ContractWindowProcess::ask(const std::string& command)
{
    write(command);
    std::istringstream answer(readLine());
    std::string done;
    Rect frame;
    answer >> done >> frame.x >> frame.y >> frame.width >> frame.height;
    return frame;
}

void ContractWindowProcess::write(const std::string& line)
{
    NSString* text = [NSString stringWithFormat:@"%s\n", line.c_str()];
    [m_commands.fileHandleForWriting writeData:[text dataUsingEncoding:NSUTF8StringEncoding] error:nil];
}

std::string ContractWindowProcess::readLine()
{
    std::size_t end = 0;
    while ((end = m_read.find('\n')) == std::string::npos) {
        NSData* data = m_answers.fileHandleForReading.availableData; // waits
        if (data.length == 0)
            return {}; // it has ended
        m_read.append(static_cast<const char*>(data.bytes), data.length);
    }
    const std::string line = m_read.substr(0, end);
    m_read.erase(0, end + 1);
    return line;
}

} // namespace haloric
