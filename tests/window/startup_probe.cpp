// The real start-up with modules that do what their first argument says; startup_test runs it.
#include "frame/moduleregistry.h"
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "frame/userprompt.h"
#include "frame/widgetmanager.h"
#include "tests/support/testmodule.h"
#include "window/startup/startup.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>

namespace {

class CProbeModule : public CTestModule
{
public:
    using CTestModule::CTestModule;

    void Initialize() override
    {
        // "--version" and the like never come here.
        std::printf("initialize %d\n", GetId());
        if (GetId() != 1)
            return;
        const QByteArray mode = qgetenv("PROBE_INTERACTIVE");
        if (mode == "throw")
            QTimer::singleShot(0, [] { throw std::runtime_error("thrown in the event loop"); });
        if (mode == "exit")
            QTimer::singleShot(0, [] { QApplication::exit(5); });
    }

    int Run(QApplication*, int argc, char** argv) override
    {
        const QString sMode = argv[2];
        if (sMode == "throw")
            throw std::runtime_error("thrown in a run");
        if (sMode == "ask")
            return UserPrompt::Confirm("Title", "Nobody is here") ? 0 : 7;
        std::printf("arguments %d %s, window %d, font %lld\n", argc, argv[argc - 1],
                    CWidgetManager::Instance().GetWidget(CWidgetManager::MAIN_WINDOW) != nullptr,
                    static_cast<long long>(Get(CPreferences::Instance(), PreferenceKey::FONT_INCREMENT)));
        return 3;
    }
};

} // namespace

int main(int argc, char** argv)
{
    for (const auto& [nId, sName] : {std::pair{6, "CGNS"}, {1, "Plot3D"}})
        CModuleRegistry::Instance().SetFactory(nId,
                                               [=] { return std::make_unique<CProbeModule>(nId, sName); });
    return RunApplication(argc, argv);
}
