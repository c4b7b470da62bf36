// Texts, collections, numbers, notifications and user defaults, and their bridges to Core Foundation.
#include "foundation/Foundation.h"
#include "macos/support/Probe.h"

#import <CoreFoundation/CoreFoundation.h>

#include <gtest/gtest.h>

#include <string>

namespace haloric {
namespace {

TEST(Strings, lengths_and_indices_count_units_of_utf16)
{
    NSString* text = @"Grüße \U0001F600";
    EXPECT_EQ(text.length, 8U);
    EXPECT_EQ([text characterAtIndex:2], 0xFC);
    EXPECT_EQ([text characterAtIndex:6], 0xD83D);
    EXPECT_STREQ(text.UTF8String, "Grüße \U0001F600");
}

TEST(Strings, of_bytes_that_are_no_utf8_do_not_exist)
{
    const std::uint8_t bytes[] = {'a', 0xFF};
    EXPECT_EQ(CFStringCreateWithBytes(kCFAllocatorDefault, bytes, 2, kCFStringEncodingUTF8, false), nullptr);
    const std::uint8_t cut[] = {0xE2, 0x82};
    EXPECT_EQ(CFStringCreateWithBytes(kCFAllocatorDefault, cut, 2, kCFStringEncodingUTF8, false), nullptr);
}

TEST(Strings, of_equal_characters_are_equal_and_have_equal_hashes)
{
    NSString* made = [NSString stringWithUTF8String:"same"];
    EXPECT_TRUE([made isEqual:@"same"]);
    EXPECT_EQ(made.hash, @"same".hash);
    EXPECT_FALSE([made isEqual:@1]);
}

TEST(Strings, formats_have_objects_and_numbers)
{
    NSString* text = [NSString stringWithFormat:@"%@ %s %d %lu %.2f%%", @"a", "b", -3, 4UL, 0.5];
    EXPECT_STREQ(text.UTF8String, "a b -3 4 0.50%");
}

TEST(Bridging, a_reference_moves_between_both_without_being_copied)
{
    int ended = 0;
    CFTypeRef reference = nullptr;
    {
        Probe* one = [Probe countingIn:&ended];
        reference = CFBridgingRetain(one);
    }
    EXPECT_EQ(ended, 0);
    CFRetain(reference);
    CFRelease(reference);
    {
        id back = CFBridgingRelease(reference);
        EXPECT_TRUE([back isKindOfClass:Probe.class]);
    }
    EXPECT_EQ(ended, 1);
}

TEST(Bridging, each_type_has_its_number)
{
    EXPECT_EQ(CFGetTypeID((__bridge CFTypeRef) @"text"), CFStringGetTypeID());
    EXPECT_EQ(CFGetTypeID((__bridge CFTypeRef) @1.5), CFNumberGetTypeID());
    EXPECT_EQ(CFGetTypeID((__bridge CFTypeRef) @YES), CFBooleanGetTypeID());
    EXPECT_EQ(CFGetTypeID((__bridge CFTypeRef) @{}), CFDictionaryGetTypeID());
    EXPECT_TRUE(CFNumberIsFloatType((__bridge CFNumberRef) @1.5));
    EXPECT_FALSE(CFNumberIsFloatType((__bridge CFNumberRef) @1));
}

TEST(BridgingDeathTest, releasing_null_ends_the_program) { EXPECT_DEATH(CFRelease(nullptr), "CFRelease"); }

TEST(Collections, an_array_keeps_its_objects_and_a_copy_of_it_stays)
{
    NSMutableArray* all = [NSMutableArray arrayWithObject:@"a"];
    NSArray* copy = [all copy];
    [all addObject:@"b"];
    EXPECT_EQ(copy.count, 1U);
    EXPECT_EQ(all.count, 2U);
    std::string joined;
    for (NSString* one in all)
        joined += one.UTF8String;
    EXPECT_EQ(joined, "ab");
    EXPECT_EQ(@[].firstObject, nil);
}

TEST(Collections, a_dictionary_finds_equal_keys)
{
    NSMutableDictionary* all = [NSMutableDictionary dictionary];
    all[@"one"] = @1;
    all[[NSString stringWithUTF8String:"one"]] = @2;
    EXPECT_EQ(all.count, 1U);
    EXPECT_EQ([all[@"one"] integerValue], 2);
    EXPECT_EQ(all[@"two"], nil);
    all[@"one"] = nil;
    EXPECT_EQ(all.count, 0U);
}

TEST(CollectionsDeathTest, a_misuse_ends_the_program)
{
    EXPECT_DEATH((void)@[][0], "NSRangeException");
    EXPECT_DEATH([[NSMutableArray array] addObject:(id)nil], "cannot be nil");
    EXPECT_DEATH(
        {
            NSMutableArray* all = [NSMutableArray arrayWithObject:@1];
            for (id one in [all copy])
                (void)one;
            for (id one in all) {
                (void)one;
                [all addObject:@2];
                [all addObject:@3];
                break;
            }
            for (id one in all) {
                (void)one;
                [all addObject:@4];
            }
        },
        "mutated while being enumerated");
}

TEST(Numbers, are_converted_and_compared_by_value)
{
    EXPECT_EQ([@2.75 intValue], 2);
    EXPECT_TRUE([@1 isEqual:@1.0]);
    EXPECT_EQ([@(-1) unsignedIntValue], 0xFFFFFFFFU);
    EXPECT_TRUE([@YES boolValue]);
}

TEST(Notifications, reach_observers_of_their_name_until_they_are_removed)
{
    NSNotificationCenter* center = [[NSNotificationCenter alloc] init];
    __block int heard = 0;
    id observer = [center addObserverForName:@"one"
                                      object:nil
                                       queue:nil
                                  usingBlock:^(NSNotification* notification) {
                                    heard += [notification.userInfo[@"by"] intValue];
                                  }];
    [center postNotificationName:@"one" object:nil userInfo:@{@"by" : @3}];
    [center postNotificationName:@"two" object:nil userInfo:@{@"by" : @5}];
    [center removeObserver:observer];
    [center postNotificationName:@"one" object:nil userInfo:@{@"by" : @7}];
    EXPECT_EQ(heard, 3);
}

TEST(Notifications, an_observer_can_remove_itself_and_another_one)
{
    NSNotificationCenter* center = [[NSNotificationCenter alloc] init];
    NSNotificationCenter* __weak weak = center;
    __block id first = nil;
    __block id second = nil;
    __block int heard = 0;
    first = [center addObserverForName:@"one"
                                object:nil
                                 queue:nil
                            usingBlock:^(NSNotification*) {
                              ++heard;
                              [weak removeObserver:second];
                              [weak removeObserver:first];
                            }];
    second = [center addObserverForName:@"one"
                                 object:nil
                                  queue:nil
                             usingBlock:^(NSNotification*) {
                               heard += 10;
                             }];
    [center postNotificationName:@"one" object:nil];
    EXPECT_EQ(heard, 1);
    first = nil;
    second = nil;
}

TEST(UserDefaults, keep_data_by_key_and_return_no_other_type_as_data)
{
    NSUserDefaults* defaults = NSUserDefaults.standardUserDefaults;
    [defaults setObject:[NSData dataWithBytes:"ab" length:2] forKey:@"data"];
    [defaults setObject:@"text" forKey:@"text"];
    EXPECT_EQ([defaults dataForKey:@"data"].length, 2U);
    EXPECT_EQ([defaults dataForKey:@"text"], nil);
    [defaults removeObjectForKey:@"data"];
    [defaults removeObjectForKey:@"text"];
    EXPECT_EQ([defaults dataForKey:@"data"], nil);
}

TEST(Availability, is_answered_when_the_program_runs)
{
    const char* const before = std::getenv("SUBSTITUTE_MACOS_VERSION");
    const std::string kept = before ? before : "";
    ::setenv("SUBSTITUTE_MACOS_VERSION", "13", 1);
    bool newer = false;
    if (@available(macOS 14.0, *))
        newer = true;
    EXPECT_FALSE(newer);
    ::setenv("SUBSTITUTE_MACOS_VERSION", "14", 1);
    if (@available(macOS 14.0, *))
        newer = true;
    EXPECT_TRUE(newer);
    if (before)
        ::setenv("SUBSTITUTE_MACOS_VERSION", kept.c_str(), 1);
    else
        ::unsetenv("SUBSTITUTE_MACOS_VERSION");
}

} // namespace
} // namespace haloric
