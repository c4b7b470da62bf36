// The command channel over sockets: peers that connect, send any bytes in any parts, stop reading and vanish. The
// server answers whole lines only, forgets peers that have gone, and serves the next one.
#include "app/InstanceCommand.h"
#include "fuzz/Fuzzing.h"
#include "hosts/linux/instance/InstanceServer.h"

#include <array>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

using namespace haloric;

constexpr InstanceServer::Limits kLimits{.patience = Seconds(3600)}; // no run waits for it
constexpr int kTurnsOfAnExchange = 8;

// A socket of the abstract namespace, with a name that the kernel chooses.
struct Listener {
    PosixDescriptor socket{::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)};
    sockaddr_un address{};
    socklen_t size = sizeof address;
    int accepted = 0; // connections that wait in the queue or have waited there

    Listener()
    {
        address.sun_family = AF_UNIX;
        auto* const raw = reinterpret_cast<sockaddr*>(&address);
        fuzzRequire(bind(socket.number(), raw, sizeof(sa_family_t)) == 0 && listen(socket.number(), 64) == 0 &&
                        getsockname(socket.number(), raw, &size) == 0,
                    "a socket can be made");
    }

    // Not open if the queue is full.
    PosixDescriptor connected()
    {
        PosixDescriptor peer(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
        const bool done = connect(peer.number(), reinterpret_cast<const sockaddr*>(&address), size) == 0;
        accepted += done ? 1 : 0;
        return done ? std::move(peer) : PosixDescriptor();
    }
};

std::string answer(std::string_view line)
{
    fuzzRequire(line.size() <= kLimits.lineLength && line.find('\n') == std::string_view::npos,
                "the server answers whole lines of the permitted length");
    const auto command = InstanceCommand::parse(line);
    // Longer than the buffer of a socket for one command, so that a slow reader meets the rest of a reply.
    const bool isLong = command && command->kind == InstanceCommand::Kind::printSettings;
    return InstanceReply{.done = command.has_value(), .text = std::string(isLong ? 600'000 : 3, 'x')}.bytes();
}

void say(const PosixDescriptor& peer, std::string_view text)
{
    if (peer.isOpen())
        send(peer.number(), text.data(), text.size(), MSG_NOSIGNAL);
}

ssize_t hear(const PosixDescriptor& peer)
{
    std::array<char, 65536> part;
    return peer.isOpen() ? recv(peer.number(), part.data(), part.size(), 0) : -1;
}

void act(FuzzInput& input, Listener& listener, PosixDescriptor& peer)
{
    switch (input.below(8)) {
    case 0:
        peer = listener.connected();
        break;
    case 1:
        peer = PosixDescriptor();
        break;
    case 2:
        if (peer.isOpen())
            shutdown(peer.number(), input.flag() ? SHUT_WR : SHUT_RD);
        break;
    case 3:
        hear(peer);
        break;
    case 4:
        say(peer, "haloric 1 ");
        break;
    case 5:
        say(peer, input.flag() ? "print-settings\n" : "\n");
        break;
    default:
        say(peer, input.text());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    Listener listener;
    LinuxRunLoop loop;
    InstanceServer server(loop, listener.socket.number(), geteuid(), &answer, kLimits);
    {
        std::array<PosixDescriptor, 20> peers; // more than the server serves at a time
        while (!input.isEmpty()) {
            const std::uint8_t choice = input.byte();
            if (choice >= 0xC0)
                loop.turn(Seconds(0));
            else
                act(input, listener, peers[choice % peers.size()]);
            fuzzRequire(server.peerCount() <= kLimits.peers, "the number of peers is limited");
        }
    }
    for (int turn = 0; turn < listener.accepted + kTurnsOfAnExchange; ++turn) // each accepts one peer
        loop.turn(Seconds(0));
    fuzzRequire(server.peerCount() == 0, "the server forgets peers that have gone");
    const PosixDescriptor last = listener.connected();
    say(last, "haloric 1 reopen\n");
    for (int turn = 0; turn < kTurnsOfAnExchange; ++turn)
        loop.turn(Seconds(0));
    fuzzRequire(hear(last) > 0, "the server serves the next peer");
    return 0;
}
