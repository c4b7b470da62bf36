// The process: its environment, bundle, user defaults, log, and the processes
// that it starts.
#include "foundation/Balance.h"
#include "foundation/Foundation.h"
#include "runtime/ObjectiveCAbi.h"

#include "loop/Clock.h"
#include "platform/Application.h"
#include "platform/ApplicationCatalog.h"
#include "platform/Bundle.h"
#include "platform/Log.h"
#include "platform/Processes.h"
#include "platform/UserDefaults.h"
#include "world/Backing.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

using substitute::raise;
using substitute::text;

std::map<void*, NSActivityOptions>& substitute::activities()
{
    static auto* const all = new std::map<void*, NSActivityOptions>;
    return *all;
}
static NSDictionary* dictionaryOf(const substitute::Backing::Texts& texts)
{
    NSMutableDictionary* all = [NSMutableDictionary dictionary];
    for (const auto& [key, value] : texts)
        all[text(key)] = text(value);
    return all;
}

@implementation NSProcessInfo
+ (NSProcessInfo*)processInfo
{
    static NSProcessInfo* const one = substitute::permanent([] { return [[NSProcessInfo alloc] init]; });
    return one;
}
- (NSTimeInterval)systemUptime
{
    return substitute::now();
}
// NSProcessInfo beginActivityWithOptions:reason: the activity lasts until endActivity: has been called with its token.
- (id<NSObject>)beginActivityWithOptions:(NSActivityOptions)options reason:(NSString*)reason
{
    if (reason.length == 0)
        raise("NSInvalidArgumentException: an activity without a reason");
    id token = [[NSObject alloc] init];
    substitute::activities()[(__bridge void*)token] = options;
    return token;
}
- (void)endActivity:(id<NSObject>)activity
{
    if (substitute::activities().erase((__bridge void*)activity) != 1)
        raise("an activity is ended that was not begun");
}
- (int)processIdentifier
{
    if (const substitute::Backing* backing = substitute::backing())
        return static_cast<int>(backing->adapters.application.processID());
    return getpid();
}
- (NSDictionary*)environment
{
    if (const substitute::Backing* backing = substitute::backing())
        return dictionaryOf(backing->environment);
    NSMutableDictionary* all = [NSMutableDictionary dictionary];
    for (char** one = environ; *one; ++one)
        if (const char* eq = std::strchr(*one, 0x3d))
            all[text(std::string(static_cast<const char*>(*one), eq))] = text(eq + 1);
    return all;
}
@end

@implementation NSUserDefaults {
    std::map<std::string, id> _values;
    std::mutex _lock;
}
+ (NSUserDefaults*)standardUserDefaults
{
    static NSUserDefaults* const one = substitute::permanent([] { return [[NSUserDefaults alloc] init]; });
    return one;
}
- (id)objectForKey:(NSString*)key
{
    const std::lock_guard guard(_lock);
    const auto f = _values.find([key _utf8]);
    return f == _values.end() ? nil : f->second;
}
- (NSData*)dataForKey:(NSString*)key
{
    if (const substitute::Backing* backing = substitute::backing()) {
        const auto bytes = backing->adapters.userDefaults.data([key _utf8]);
        return bytes ? [NSData dataWithBytes:bytes->data() length:bytes->size()] : nil;
    }
    id value = [self objectForKey:key];
    return [value isKindOfClass:NSData.class] ? value : nil;
}
// setObject:forKey: the value stays stored when the program has let go of it, so a copy is kept, which is no object of
// the program.
- (void)setObject:(id)value forKey:(NSString*)key
{
    if (!key)
        raise("NSInvalidArgumentException: nil key");
    if (const substitute::Backing* backing = substitute::backing()) {
        NSData* data = value;
        backing->adapters.userDefaults.setData([key _utf8], { static_cast<const char*>(data.bytes), data.length });
        return;
    }
    id kept = value;
    if ([value isKindOfClass:NSData.class])
        kept = substitute::permanent(
            [data = (NSData*)value] { return [NSData dataWithBytes:data.bytes length:data.length]; });
    const std::lock_guard guard(_lock);
    if (kept)
        _values[[key _utf8]] = kept;
    else
        _values.erase([key _utf8]);
}
- (NSDictionary*)dictionaryRepresentation
{
    const std::lock_guard guard(_lock);
    NSMutableDictionary* all = [NSMutableDictionary dictionary];
    for (const auto& [key, value] : _values)
        all[text(key)] = value;
    return all;
}
- (void)removeObjectForKey:(NSString*)key
{
    const std::lock_guard guard(_lock);
    _values.erase([key _utf8]);
}
@end

@implementation NSBundle {
    std::string _path;
    BOOL _main;
}
+ (NSBundle*)mainBundle
{
    static NSBundle* const one = substitute::permanent([] {
        NSBundle* made = [[NSBundle alloc] init];
        made->_main = YES;
        char path[4096];
        const auto n = readlink("/proc/self/exe", path, sizeof path);
        std::string p(path, static_cast<std::size_t>(n > 0 ? n : 0));
        made->_path = p.substr(0, p.rfind('/'));
        return made;
    });
    return one;
}
+ (instancetype)bundleWithPath:(NSString*)path
{
    if (!substitute::backing() && access([path _utf8].c_str(), R_OK) != 0)
        return nil;
    NSBundle* made = [[NSBundle alloc] init];
    made->_path = [path _utf8];
    return made;
}
- (NSString*)bundlePath
{
    if (const substitute::Backing* backing = substitute::backing(); backing && _main)
        return text(backing->adapters.bundle.path());
    return text(_path);
}
- (NSString*)bundleIdentifier
{
    const substitute::Backing* backing = substitute::backing();
    if (!backing)
        return nil;
    const auto identifier =
        _main ? backing->adapters.bundle.identifier() : backing->adapters.applicationCatalog.bundleIdentifier(_path);
    return identifier ? text(*identifier) : nil;
}
- (NSDictionary*)infoDictionary
{
    if (const substitute::Backing* backing = substitute::backing(); backing && _main)
        return dictionaryOf(backing->information);
    return @{};
}
- (NSString*)privateFrameworksPath
{
    return text(_path + "/Contents/Frameworks");
}
- (BOOL)load
{
    return NO;
}
@end

@implementation NSFileHandle {
@public
    int _number;
}
+ (NSFileHandle*)fileHandleWithNullDevice
{
    NSFileHandle* made = [[NSFileHandle alloc] init];
    made->_number = -1;
    return made;
}
@end
@implementation NSTask {
    NSURL* _executable;
    NSArray* _arguments;
    NSFileHandle* _input;
    pid_t _pid;
}
- (void)setExecutableURL:(NSURL*)url
{
    _executable = url;
}
- (NSURL*)executableURL
{
    return _executable;
}
- (void)setArguments:(NSArray*)arguments
{
    _arguments = [arguments copy];
}
- (void)setStandardInput:(id)input
{
    _input = input;
}
- (BOOL)launchAndReturnError:(NSError**)error
{
    std::vector<std::string> words{[_executable.path _utf8]};
    for (NSString* word in _arguments)
        words.push_back([word _utf8]);
    if (const substitute::Backing* backing = substitute::backing())
        return backing->adapters.processes.launch(words.front(), {words.begin() + 1, words.end()});
    std::vector<char*> argv;
    for (auto& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    if (_input)
        posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    const int failed = posix_spawn(&_pid, argv[0], &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failed && error)
        *error = [NSError errorWithDomain:@"NSPOSIXErrorDomain" code:failed userInfo:nil];
    return !failed;
}
- (int)processIdentifier
{
    return _pid;
}
- (void)dealloc
{
    if (_pid) {
        int status;
        waitpid(_pid, &status, 0);
    }
}
@end
@implementation NSFileManager
+ (NSFileManager*)defaultManager
{
    static NSFileManager* const one = substitute::permanent([] { return [[NSFileManager alloc] init]; });
    return one;
}
- (NSString*)displayNameAtPath:(NSString*)path
{
    if (const substitute::Backing* backing = substitute::backing())
        return text(backing->adapters.applicationCatalog.displayName([path _utf8]));
    std::string p = [path _utf8];
    p = p.substr(p.rfind('/') + 1);
    if (p.ends_with(".app"))
        p.resize(p.size() - 4);
    return text(p);
}
@end
extern "C" NSString* NSTemporaryDirectory() { return @"/tmp/"; }

extern "C" void NSLog(NSString* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const std::string line = substitute::formatted(format, arguments);
    va_end(arguments);
    if (const substitute::Backing* backing = substitute::backing()) {
        backing->adapters.log.line(line);
        return;
    }
    std::fprintf(stderr, "program[%d] %s\n", getpid(), line.c_str());
}
extern "C" Class NSClassFromString(NSString* name)
{
    return (__bridge Class)(void*)rt_class_named([name _utf8].c_str());
}
extern "C" SEL NSSelectorFromString(NSString* name) { return (SEL)sel_registerName([name _utf8].c_str()); }
extern "C" NSString* NSStringFromSelector(SEL selector) { return substitute::text(sel_getName(selector)); }
