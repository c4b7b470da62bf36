#include "hosts/macos/loop/MacSerialQueues.h"

#include "hosts/macos/base/OwnPool.h"

#import <Foundation/Foundation.h>

#include <string>

namespace haloric {
namespace {

class MacSerialQueue final : public SerialQueue {
public:
    MacSerialQueue(const std::string& label, dispatch_qos_class_t quality)
        : m_queue(dispatch_queue_create(label.c_str(),
                                        dispatch_queue_attr_make_with_qos_class(DISPATCH_QUEUE_SERIAL, quality, 0)))
    {
    }

    ~MacSerialQueue() override
    {
        dispatch_sync(m_queue, ^{
                          // behind every block that was submitted
                      });
    }

    MacSerialQueue(const MacSerialQueue&) = delete;
    MacSerialQueue& operator=(const MacSerialQueue&) = delete;

    void async(Task block) override
    {
        dispatch_async(m_queue, ^{
          withOwnPool(block);
        });
    }

private:
    dispatch_queue_t m_queue;
};

dispatch_qos_class_t classOf(QualityOfService quality)
{
    return quality == QualityOfService::userInitiated ? QOS_CLASS_USER_INITIATED : QOS_CLASS_UTILITY;
}

} // namespace

std::unique_ptr<SerialQueue> MacSerialQueues::make(std::string_view label, QualityOfService quality)
{
    return std::make_unique<MacSerialQueue>(std::string(label), classOf(quality));
}

} // namespace haloric
