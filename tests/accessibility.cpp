#include "tests/accessibility.h"

#include "tests/desktop_session.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include <sys/prctl.h>
#include <sys/wait.h>

namespace quillet {
namespace {

// Milliseconds. The machine may be busy; but a dialog is open as long as its user likes.
constexpr int answerTime = 10'000;
constexpr int dialogTime = 500;

template <class T>
std::shared_ptr<T> owned(T* object) {
    return object != nullptr ? std::shared_ptr<T>(object, g_object_unref) : nullptr;
}

// What was heard, by its source and type.
std::map<std::shared_ptr<AtspiAccessible>, std::map<std::string, std::string>> heard;

// Types are such as "object:text-changed:insert".
void hear(AtspiEvent* event, void* /*data*/) {
    const std::string type = event->type;
    const std::size_t begin = type.find(':') + 1;
    const std::size_t end = std::min(type.find(':', begin), type.size());
    const auto source = owned(ATSPI_ACCESSIBLE(g_object_ref(event->source)));
    std::string& log = heard[source][type.substr(begin, end - begin)];
    if (end + 1 < type.size())
        log += type.substr(end + 1) + ' ';
    log += std::to_string(event->detail1);
    if (event->detail2 != 0 && G_VALUE_HOLDS_STRING(&event->any_data))
        log += ' ' + std::string(g_value_get_string(&event->any_data));
    log += "; ";
    g_boxed_free(ATSPI_TYPE_EVENT, event);
}

// True when no child is left, nor any that its own parent has left behind.
bool allEnded() {
    return waitpid(-1, nullptr, WNOHANG) < 0;
}

// The buses, and the one client on them: the library connects only once in a process. Nothing
// here may reach the user's own buses and display.
class Buses : public ::testing::Environment {
  public:
    void SetUp() override {
        prctl(PR_SET_CHILD_SUBREAPER, 1); // the services that a bus starts end a while after it
        const std::string socket = folder_.path / "session";
        const std::string address = "unix:path=" + socket;
        setenv("XDG_RUNTIME_DIR", folder_.path.c_str(), 1);
        setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
        setenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1", 1);
        for (const char* variable : {"AT_SPI_BUS_ADDRESS", "DISPLAY", "WAYLAND_DISPLAY"})
            unsetenv(variable);
        sessionBus_ = std::make_unique<Process>(std::vector<std::string>{
            "dbus-daemon", "--session", "--nofork", "--address=" + address});
        ASSERT_TRUE(waitUntil([&] { return fs::exists(socket); }));
        ASSERT_TRUE(waitUntil([] { return atspi_get_a11y_bus() != nullptr; }));
        ASSERT_EQ(atspi_init(), 0);
        atspi_set_timeout(answerTime, answerTime);
        listener_ = owned(atspi_event_listener_new(hear, nullptr, nullptr));
        for (const char* type :
             {"object:text-changed", "object:text-caret-moved", "object:text-selection-changed"})
            ASSERT_TRUE(atspi_event_listener_register(listener_.get(), type, nullptr));
    }

    void TearDown() override {
        heard.clear();
        listener_.reset();
        atspi_exit();
        sessionBus_.reset();
        EXPECT_TRUE(waitUntil(allEnded)) << "a process goes on";
    }

  private:
    TempFolder folder_;
    std::unique_ptr<Process> sessionBus_;
    std::shared_ptr<AtspiEventListener> listener_;
};

[[maybe_unused]] const auto* const buses = ::testing::AddGlobalTestEnvironment(new Buses);

} // namespace

Accessible::Accessible(AtspiAccessible* object) : object_(owned(object)) {}

Accessible Accessible::program() {
    return Accessible(atspi_get_desktop(0)).find("application", "Quillet");
}

bool Accessible::is(AtspiStateType state) const {
    const auto states = owned(atspi_accessible_get_state_set(get()));
    return states != nullptr && atspi_state_set_contains(states.get(), state) != FALSE;
}

std::vector<Accessible> Accessible::children() const {
    std::vector<Accessible> children;
    const int count = atspi_accessible_get_child_count(get(), nullptr);
    for (int i = 0; i < count; ++i) {
        const Accessible child(atspi_accessible_get_child_at_index(get(), i, nullptr));
        if (child) // it may have gone meanwhile
            children.push_back(child);
    }
    return children;
}

Accessible Accessible::first(const std::function<bool(const Accessible&)>& fits) const {
    for (const Accessible& child : children()) {
        if (Accessible found = fits(child) ? child : child.first(fits))
            return found;
    }
    return Accessible(nullptr);
}

Accessible Accessible::find(const std::string& role, const std::string& name) const {
    Accessible found(nullptr);
    waitUntil([&] {
        found = first([&](const Accessible& object) {
            return object.role() == role && object.name() == name;
        });
        return static_cast<bool>(found);
    });
    return found;
}

Accessible Accessible::focused() const {
    return first([](const Accessible& object) { // its frame or its inside may say they have it
        return object.is(ATSPI_STATE_FOCUSED) && object.is(ATSPI_STATE_FOCUSABLE);
    });
}

std::vector<std::string> Accessible::names(const std::string& role) const {
    std::vector<std::string> names;
    first([&](const Accessible& object) {
        if (object.role() == role && !object.name().empty())
            names.push_back(object.name());
        return false;
    });
    return names;
}

void Accessible::invoke() const {
    atspi_set_timeout(dialogTime, dialogTime);
    atspi_action_do_action(ATSPI_ACTION(get()), 0, nullptr);
    atspi_set_timeout(answerTime, answerTime);
}

std::string Accessible::events(const std::string& type, const std::string& expected) const {
    std::string& log = heard[object_][type];
    waitUntil([&] {
        while (g_main_context_iteration(nullptr, FALSE) != FALSE) {
        }
        return log.size() >= expected.size();
    });
    return std::exchange(log, {});
}

} // namespace quillet
