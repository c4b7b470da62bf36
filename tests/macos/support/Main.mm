// The main program of every test on the substitute of macOS.
#import <Foundation/Foundation.h>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    @autoreleasepool {
        testing::InitGoogleTest(&argc, argv);
        return RUN_ALL_TESTS();
    }
}
