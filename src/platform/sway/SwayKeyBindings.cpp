// SPDX-License-Identifier: MIT

#include "platform/sway/SwayKeyBindings.h"

#include "platform/sway/SwayReading.h"

#include <algorithm>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

using Question = SwayConnection::Question;

/// Does nothing in sway; the rest tells whose binding it is.
constexpr auto ownCommand = "nop trovell:"_L1;

} // namespace

SwayKeyBindings::SwayKeyBindings(const QByteArray& socketPath)
    : m_connection(socketPath), m_events(socketPath)
{
    // One by one: a version that does not know one of several names refuses them all.
    for (const char* name : {R"(["binding"])", R"(["workspace"])"})
        (void)m_events.ask(Question::subscribe, name);
    if (!m_events.isAlive())
        return;
    m_notifier = std::make_unique<QSocketNotifier>(m_events.descriptor(), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &SwayKeyBindings::processEvents);
}

SwayKeyBindings::~SwayKeyBindings()
{
    m_notifier.reset();
    for (const Binding& binding : std::as_const(m_bindings))
        unbind(binding);
}

SwayConfiguration SwayKeyBindings::configuration()
{
    return SwayConfiguration(readSwayConfiguration(m_connection));
}

bool SwayKeyBindings::bind(const Binding& binding)
{
    const QByteArray command =
        ' ' + QByteArray(ownCommand.data()) + QByteArray::number(binding.number);
    return m_connection.run(
        {"bindsym " + binding.key.symbol + command, "bindcode " + binding.key.code + command});
}

void SwayKeyBindings::unbind(const Binding& binding)
{
    m_connection.run({"unbindsym " + binding.key.symbol, "unbindcode " + binding.key.code});
}

QList<quint32> SwayKeyBindings::replace(const QList<HotKey>& hotKeys,
                                        HotKeySystem::PressHandler handler)
{
    for (const Binding& binding : std::exchange(m_bindings, {}))
        unbind(binding);
    m_handler = std::move(handler);
    const SwayConfiguration users = configuration();
    QList<quint32> granted;
    for (const HotKey& hotKey : hotKeys) {
        const auto key = swayKey(hotKey.keys);
        const bool isTaken = !key || users.binds(*key) ||
                             std::ranges::any_of(m_bindings, [&key](const Binding& binding) {
                                 return binding.key.symbol == key->symbol;
                             });
        if (isTaken || !m_notifier || !bind({hotKey.number, *key}))
            continue;
        m_bindings.append({hotKey.number, *key});
        granted.append(hotKey.number);
    }
    return granted;
}

void SwayKeyBindings::bindAgain()
{
    const SwayConfiguration users = configuration();
    for (const Binding& binding : std::as_const(m_bindings)) {
        if (!users.binds(binding.key))
            bind(binding);
    }
}

void SwayKeyBindings::processEvents()
{
    const auto events = m_events.takeEvents();
    // It would stay readable for ever.
    if (!m_events.isAlive())
        m_notifier->setEnabled(false);
    for (const SwayConnection::Event& event : events) {
        if (event.type != SwayConnection::bindingEvent) {
            if (event.content[u"change"].toString() == u"reload")
                bindAgain();
            continue;
        }
        const QString command = event.content[u"binding"][u"command"].toString();
        bool isNumber = false;
        const quint32 number = command.mid(ownCommand.size()).toUInt(&isNumber);
        if (isNumber && command.startsWith(ownCommand) && m_handler)
            m_handler(number);
    }
}

} // namespace trovell
