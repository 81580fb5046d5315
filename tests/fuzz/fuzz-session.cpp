// The whole program on the headless host, used as people and machines use it: the bytes say what happens, in
// any order and in the middle of anything else. VELMORATH_TELL=1 tells each step on standard error.

#include "SessionWatch.h"
#include <cstdint>
#include <fuzzer/FuzzedDataProvider.h>

using namespace velmorath;

namespace {

constexpr CGSize sizes[] = {{320, 536}, {375, 667}, {568, 320}, {300, 130}, {1200, 800}, {320, 40}};
constexpr const char* texts[] = {"a", "two words", "שלום", "👵🏽",
    "A note that is much longer than its row is wide", "one line\nanother", " ", ""};
constexpr const char* files[] = {"- [ ] one\n- [x] two\n  lines\n", "a\nb\nnote 1\n", "", "bplist00"};
constexpr HostKey keys[] = {HostKey::up, HostKey::down, HostKey::left, HostKey::right, HostKey::home,
    HostKey::end, HostKey::pageUp, HostKey::pageDown, HostKey::tab, HostKey::enter, HostKey::space,
    HostKey::escape, HostKey::insert, HostKey::edit, HostKey::remove};

class Session {
public:
    Session(const std::uint8_t* data, std::size_t size)
        : m_bytes(data, size)
    {
        m_watch.host.screen().setSize(m_bytes.PickValueInArray(sizes));
        const bool isFirstStart = below(8) == 0;
        if (!isFirstStart)
            m_watch.putNotes(below(32), below(8) != 0, below(7));
        m_watch.start();
    }

    void run()
    {
        while (m_bytes.remaining_bytes() > 0)
            step();
        m_watch.takeAllBack();
    }

private:
    std::size_t below(std::size_t end) { return m_bytes.ConsumeIntegralInRange<std::size_t>(0, end - 1); }
    /// From 0 to 1.
    CGFloat part() { return m_bytes.ConsumeIntegral<std::uint8_t>() / 255.0; }

    CGPoint somewhere()
    {
        const CGSize size = m_watch.host.screen().size();
        const CGFloat columns[] = {
            30, size.width / 2, size.width * 0.7, size.width - 40, size.width - 20, 2, size.width * part()};
        const CGFloat x = m_bytes.PickValueInArray(columns);
        const std::size_t row = below(14);
        if (row == 12)
            return {x, size.height - 28};
        if (row == 13)
            return {x, size.height * part()};
        return {x, row * 60.0 + (m_bytes.ConsumeBool() ? 30 : 8)};
    }

    std::int64_t finger() { return m_bytes.ConsumeBool() ? 2 : 1; }

    void touch(std::int64_t identifier, HostTouch::Phase phase, CGPoint place)
    {
        m_watch.touch({{identifier, phase, place}});
    }

    /// In a few frames, which may end before it does.
    void drag(std::int64_t identifier, CGVector way)
    {
        const std::size_t steps = 1 + below(6);
        for (std::size_t step = 0; step < steps && m_watch.fingers().contains(identifier); ++step) {
            const CGPoint from = m_watch.fingers().at(identifier);
            touch(identifier, HostTouch::Phase::moved,
                {from.x + way.dx / static_cast<CGFloat>(steps),
                    from.y + way.dy / static_cast<CGFloat>(steps)});
            m_watch.advance(0.016);
        }
    }

    void step()
    {
        switch (below(20)) {
        case 0:
        case 1:
            return touch(finger(), HostTouch::Phase::began, somewhere());
        case 2: {
            const std::int64_t one = finger();
            return drag(one, {(part() - 0.5) * 2 * m_watch.host.screen().size().width, 0});
        }
        case 3: {
            const std::int64_t one = finger();
            return drag(one, {0, (part() - 0.5) * 2 * m_watch.host.screen().size().height});
        }
        case 4:
            return touch(finger(), HostTouch::Phase::ended, {-1, -1});
        case 5:
            return tap();
        case 6:
            return spread();
        case 7:
            return m_watch.advance(part() * part());
        case 8:
            return m_watch.advance(0.001 * static_cast<double>(1 + below(16)));
        case 9:
            return m_watch.act("wheel", [&] { m_watch.host.wheel(somewhere(), (part() - 0.5) * 2000); });
        case 10:
            return m_watch.press(
                {m_bytes.PickValueInArray(keys), below(4) == 0, below(4) == 0, below(4) == 0});
        case 11:
            return m_watch.act(
                "type", [&] { m_watch.host.textInput().replaceText(m_bytes.PickValueInArray(texts)); });
        case 12:
            return m_watch.act("return", [&] { m_watch.host.textInput().pressReturn(); });
        case 13:
            return m_watch.useReader(m_bytes.ConsumeBool(), below(3), below(256), below(8));
        case 14:
            return m_watch.act("resize", [&] { m_watch.host.resize(m_bytes.PickValueInArray(sizes)); });
        case 15: {
            constexpr HostState states[] = {HostState::active, HostState::inactive, HostState::background};
            return m_watch.act(
                "state", [&] { m_watch.host.client().stateChanged(m_bytes.PickValueInArray(states)); });
        }
        case 16:
            return rare();
        case 17:
            return swipe();
        default:
            return m_watch.comeToRest();
        }
    }

    void rare()
    {
        switch (below(5)) {
        case 0:
            return m_watch.restart();
        case 1:
            return m_watch.setDiskFails(m_bytes.ConsumeBool());
        case 2:
            return touch(finger(), HostTouch::Phase::cancelled, {-1, -1});
        case 3:
            return m_watch.act("mail", [&] { m_watch.host.effects().setCanSendMail(m_bytes.ConsumeBool()); });
        default:
            return rarer();
        }
    }

    void rarer()
    {
        switch (below(8)) {
        case 0:
        case 4:
            return m_watch.act("draw", [&] { m_watch.host.draw(); });
        case 1:
        case 5:
            return m_watch.press({HostKey::undo});
        case 2:
        case 6:
            return m_watch.press({HostKey::redo});
        case 3:
            return m_watch.changeFromOutside(below(5), below(32), below(4) == 0);
        default:
            return m_watch.act("file", [&] {
                m_watch.host.documents().setFile(std::optional<std::string>(m_bytes.PickValueInArray(files)));
            });
        }
    }

    void tap()
    {
        const std::int64_t one = finger();
        touch(one, HostTouch::Phase::began, somewhere());
        m_watch.advance(0.03);
        touch(one, HostTouch::Phase::ended, {-1, -1});
    }

    void swipe()
    {
        const std::int64_t one = finger();
        touch(one, HostTouch::Phase::began, somewhere());
        const CGFloat way = m_watch.host.screen().size().width * 0.7;
        drag(one, {m_bytes.ConsumeBool() ? way : -way, 0});
        touch(one, HostTouch::Phase::ended, {-1, -1});
    }

    /// Two fingers, on neighbours or not, that move apart.
    void spread()
    {
        const CGPoint upper = somewhere();
        const CGPoint lower = upper + CGVector{0, m_bytes.ConsumeBool() ? 60.0 : 120.0};
        m_watch.touch({{1, HostTouch::Phase::began, upper}, {2, HostTouch::Phase::began, lower}});
        const std::size_t steps = 1 + below(4);
        for (std::size_t step = 0; step < steps && m_watch.fingers().size() == 2; ++step) {
            m_watch.touch({{1, HostTouch::Phase::moved, m_watch.fingers().at(1) + CGVector{0, -20}},
                {2, HostTouch::Phase::moved, m_watch.fingers().at(2) + CGVector{0, 20}}});
            m_watch.advance(0.016);
        }
        if (m_bytes.ConsumeBool())
            touch(finger(), HostTouch::Phase::ended, {-1, -1});
    }

    FuzzedDataProvider m_bytes;
    SessionWatch m_watch;
};

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    // A session writes hundreds of files, and nobody needs them on a disk.
    setenv("TMPDIR", "/dev/shm", 0);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Session(data, size).run();
    return 0;
}
