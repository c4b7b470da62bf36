#include "hosts/macos/shell/MacUpdaterFramework.h"

#import <Foundation/Foundation.h>

// The framework's delegate protocol: all its methods are optional, and none is implemented.
@protocol SPUUpdaterDelegate <NSObject>
@end

// The methods of the framework's standard controller that are called here.
@protocol MacStandardUpdaterController <NSObject>
- (instancetype)initWithStartingUpdater:(BOOL)startingUpdater
                        updaterDelegate:(id<SPUUpdaterDelegate>)updaterDelegate
                     userDriverDelegate:(id)userDriverDelegate;
- (void)checkForUpdates:(id)sender;
@end

@interface MacUpdaterDelegate : NSObject <SPUUpdaterDelegate>
@end

@implementation MacUpdaterDelegate
@end

namespace haloric {
namespace {

class MacUpdaterController final : public UpdaterController {
public:
    MacUpdaterController(Class controllerClass, bool startingUpdater)
        : m_controller([[controllerClass alloc] initWithStartingUpdater:startingUpdater
                                                        updaterDelegate:m_delegate
                                                     userDriverDelegate:nil])
    {
    }

    bool exists() const { return m_controller != nil; }
    void checkForUpdates() override { [m_controller checkForUpdates:nil]; }

private:
    MacUpdaterDelegate* const m_delegate = [[MacUpdaterDelegate alloc] init]; // held weakly by the framework
    const id<MacStandardUpdaterController> m_controller;
};

Class findControllerClass()
{
    NSString* path = [NSBundle.mainBundle.privateFrameworksPath stringByAppendingPathComponent:@"Sparkle.framework"];
    NSBundle* framework = path ? [NSBundle bundleWithPath:path] : nil;
    return [framework load] ? NSClassFromString(@"SPUStandardUpdaterController") : nil;
}

} // namespace

std::shared_ptr<UpdaterController> MacUpdaterFramework::makeStandardController(bool startingUpdater,
                                                                               UpdaterDelegate& /*delegate*/)
{
    const Class controllerClass = findControllerClass();
    if (!controllerClass)
        return nullptr;
    auto controller = std::make_shared<MacUpdaterController>(controllerClass, startingUpdater);
    return controller->exists() ? controller : nullptr;
}

} // namespace haloric
