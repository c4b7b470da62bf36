// The main program of every test on the substitute of macOS.
#include "macos/support/BalanceListener.h"

#import <Foundation/Foundation.h>

int main(int argc, char** argv)
{
    @autoreleasepool {
        testing::InitGoogleTest(&argc, argv);
        testing::UnitTest::GetInstance()->listeners().Append(new haloric::BalanceListener); // which owns it
        return RUN_ALL_TESTS();
    }
}
