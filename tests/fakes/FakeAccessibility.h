// Accessibility of applications that a test builds from elements. It records every call, and whether it was made in
// a block of a queue, as the blocking ones must be.
#pragma once

#include "fakes/FakeAXElement.h"
#include "platform/Accessibility.h"

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace haloric {

class FakeAccessibility final : public Accessibility {
public:
    struct Observer {
        ProcessID pid = ProcessID::none;
        std::vector<std::string> notifications;
        std::vector<AXElement> elements;  // of each notification
        std::vector<std::string> runLoop; // "add", "remove"
        bool onRunLoop = false;
        bool live = true;
        bool releasedInsideQueue = false;
        bool releasedWhileOnRunLoop = false;
        ObserverCallback callback;
    };
    using ObserverRef = std::shared_ptr<Observer>;

    bool trusted = true;
    bool grantable = true;
    mutable int trustQuestions = 0; // without a prompt
    std::vector<bool> prompts;
    std::map<ProcessID, FakeAXElementRef> applications;
    std::vector<std::string> calls; // "app 7", "AXRole", "window number", "observe 7", "release 7", in order
    std::vector<std::pair<AXElement, float>> timeouts;
    std::vector<ObserverRef> observers; // each one that was ever made
    bool refusesObservers = false;
    std::map<std::string, AXError, std::less<>> refusedNotifications;

    std::function<bool()> insideQueue = [] { return true; };
    int callsOutsideQueue = 0;
    std::function<void(std::string_view name)> onRead; // before an attribute is read, for instance to spend time
    std::function<void()> onCreateObserver;            // before an observer is made

    // Delivers a notification as the main run loop does: only from an observer that is on it.
    void notify(const ObserverRef& observer, std::string_view name)
    {
        if (observer->onRunLoop && std::ranges::count(observer->notifications, name) > 0)
            observer->callback(name);
    }

    std::size_t count(std::string_view call) const { return static_cast<std::size_t>(std::ranges::count(calls, call)); }

    bool isProcessTrusted() const override
    {
        ++trustQuestions;
        return trusted;
    }

    bool canBeGranted() const override { return grantable; }
    bool isProcessTrustedWithPrompt(bool prompt) override
    {
        prompts.push_back(prompt);
        return trusted;
    }

    AXElement createApplicationElement(ProcessID pid) override
    {
        note("app " + std::to_string(static_cast<int>(pid)));
        const auto found = applications.find(pid);
        return found == applications.end() ? nullptr : found->second;
    }

    void setMessagingTimeout(const AXElement& element, float seconds) override
    {
        checkQueue();
        timeouts.emplace_back(element, seconds);
    }

    AXAttribute copyAttribute(const AXElement& element, std::string_view name) override
    {
        note(std::string(name));
        if (onRead)
            onRead(name);
        const auto& attributes = fake(element).attributes;
        const auto found = attributes.find(name);
        return found == attributes.end() ? AXAttribute{AXError::attributeUnsupported, {}} : found->second;
    }

    AXWindowNumber windowNumber(const AXElement& element) override
    {
        note("window number");
        return fake(element).number;
    }

    std::uint64_t hash(const AXElement& element) override
    {
        checkQueue();
        return fake(element).hash;
    }

    std::unique_ptr<AXObserver> createObserver(ProcessID pid, ObserverCallback callback) override
    {
        note("observe " + std::to_string(static_cast<int>(pid)));
        if (onCreateObserver)
            onCreateObserver();
        if (refusesObservers)
            return nullptr;
        auto record = std::make_shared<Observer>();
        record->pid = pid;
        record->callback = std::move(callback);
        observers.push_back(record);
        return std::make_unique<ObserverHandle>(*this, std::move(record));
    }

private:
    class ObserverHandle final : public AXObserver {
    public:
        ObserverHandle(FakeAccessibility& owner, ObserverRef record) : m_owner(owner), m_record(std::move(record)) {}

        ~ObserverHandle() override
        {
            m_owner.calls.push_back("release " + std::to_string(static_cast<int>(m_record->pid)));
            m_record->live = false;
            m_record->releasedInsideQueue = m_owner.insideQueue();
            m_record->releasedWhileOnRunLoop = m_record->onRunLoop;
        }

        AXError addNotification(const AXElement& element, std::string_view name) override
        {
            m_owner.checkQueue();
            const auto refused = m_owner.refusedNotifications.find(name);
            if (refused != m_owner.refusedNotifications.end())
                return refused->second;
            m_record->notifications.emplace_back(name);
            m_record->elements.push_back(element);
            return AXError::success;
        }

        void addToMainRunLoop() override
        {
            m_record->runLoop.emplace_back("add");
            m_record->onRunLoop = true;
        }

        void removeFromMainRunLoop() override
        {
            m_record->runLoop.emplace_back("remove");
            m_record->onRunLoop = false;
        }

    private:
        FakeAccessibility& m_owner;
        ObserverRef m_record;
    };

    static const FakeAXElement& fake(const AXElement& element) { return static_cast<const FakeAXElement&>(*element); }

    void note(std::string call)
    {
        checkQueue();
        calls.push_back(std::move(call));
    }

    void checkQueue()
    {
        if (!insideQueue())
            ++callsOutsideQueue;
    }
};

} // namespace haloric
