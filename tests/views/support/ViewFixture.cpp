#include "views/support/ViewFixture.h"

#include <QApplication>

namespace trovell::test {

namespace {

template <class Interface, class Fake> Fake* adopt(std::unique_ptr<Interface>& place)
{
    auto fake = std::make_unique<Fake>();
    Fake* pointer = fake.get();
    place = std::move(fake);
    return pointer;
}

} // namespace

ViewFixture::ViewFixture(const AppConfiguration& configuration)
    : windows(adopt<WindowSystem, FakeWindowSystem>(m_platform.windowSystem)),
      resources(adopt<ResourceSystem, FakeResourceSystem>(m_platform.resourceSystem)),
      hotKeys(adopt<HotKeySystem, FakeHotKeySystem>(m_platform.hotKeySystem)),
      loginItem(adopt<LoginItemSystem, FakeLoginItemSystem>(m_platform.loginItemSystem)),
      m_configuration(configuration),
      m_defaults(std::make_unique<PreferenceStore>(folder.filePath(u"preferences.json"_qs))),
      m_visual(std::make_unique<VisualStyle>()),
      m_words(std::make_unique<Localization>(QStringList{QStringLiteral(TROVELL_TEST_LANGUAGES),
                                                         QStringLiteral(":/trovell/translations")}))
{
    m_visual->install(*qApp);
    m_visual->setAnimationReduced(true);
    m_words->setLanguage(u"en"_qs);
    auto store = WorkspaceStore::open(folder.filePath(u"store"_qs), {.vfsName = m_disk.name()});
    if (!store)
        qFatal("%s", qPrintable(description(store.error())));
    m_store = std::move(*store);
    m_dependencies =
        std::make_unique<AppDependencies>(m_platform, *m_defaults, clock, m_configuration);
    m_query = std::make_unique<WorkspaceQuery>(context());
    m_icons = std::make_unique<ApplicationIcons>(*resources);
    m_environment = std::make_unique<ViewEnvironment>(
        ViewEnvironment{*m_visual, *m_words, *m_dependencies, context(), *m_query, *m_icons});
    m_window = std::make_unique<QMainWindow>();
    m_window->resize(1180, 760);
}

ViewFixture::~ViewFixture() = default;

TrovellWorkspace& ViewFixture::addWorkspace(const QString& name)
{
    auto workspace = std::make_unique<TrovellWorkspace>(
        WorkspaceValues{.name = name, .sortOrder = context().workspaces().size()});
    TrovellWorkspace& inserted = context().insert(std::move(workspace));
    save();
    return inserted;
}

WorkspaceItem& ViewFixture::addItem(TrovellWorkspace& workspace, WorkspaceItemType type,
                                    const QString& displayName, const QString& urlString)
{
    const QString url = urlString.isEmpty() ? u"file:///nowhere/"_qs + displayName : urlString;
    WorkspaceItemValues values{.typeRawValue = rawValue(type),
                               .displayName = displayName,
                               .sortOrder = workspace.itemCount(),
                               .urlString = url};
    if (type == WorkspaceItemType::application) {
        values.bundleIdentifier = displayName;
        values.applicationPath = folder.filePath(displayName + u".desktop"_qs);
        values.urlString = QUrl::fromLocalFile(*values.applicationPath).toString();
    }
    WorkspaceItem& added = workspace.appendItem(std::make_unique<WorkspaceItem>(values));
    save();
    return added;
}

WindowPlacement& ViewFixture::addPlacement(TrovellWorkspace& workspace,
                                           const QString& bundleIdentifier)
{
    WindowPlacementValues values{.bundleIdentifier = bundleIdentifier,
                                 .applicationName = bundleIdentifier,
                                 .windowTitleHint = bundleIdentifier + u" window"_qs,
                                 .windowRole = u"AXWindow"_qs,
                                 .windowSubrole = u"AXStandardWindow"_qs,
                                 .normalizedX = 0.25,
                                 .normalizedY = 0.25,
                                 .normalizedWidth = 0.5,
                                 .normalizedHeight = 0.5};
    values.displayFingerprintData = encodeFingerprint(windows->displays.first().fingerprint);
    auto& added = workspace.appendPlacement(std::make_unique<WindowPlacement>(values));
    save();
    return added;
}

void ViewFixture::save()
{
    if (!context().save())
        qFatal("the fixture's store does not save");
}

void ViewFixture::setTrusted(bool isTrusted)
{
    windows->trusted = isTrusted;
    m_dependencies->accessibility().refresh();
}

void ViewFixture::refuseSaving()
{
    m_disk.arm(StoreFaultVfs::Fault::diskFull, 1, StoreFaultVfs::forEver);
}

void ViewFixture::allowSaving()
{
    m_disk.disarm();
}

} // namespace trovell::test
