#include "macos/support/Probe.h"

@implementation Probe {
    int* _ended;
    int _number;
}

+ (instancetype)countingIn:(int*)ended
{
    Probe* made = [[self alloc] init];
    made->_ended = ended;
    return made;
}

- (int)number
{
    return _number;
}

- (void)setNumber:(int)number
{
    _number = number;
}

- (void)tick:(id)__unused sender
{
    ++_number;
}

- (void)dealloc
{
    if (_ended)
        ++*_ended;
}

@end
