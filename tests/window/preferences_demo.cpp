// Opens the preferences dialog to be looked at; the settings are of this run alone.
// usage: preferences_demo [PAGE [FONT_INCREMENT [STYLE_SHEET_FILE]]]
#include "frame/moduleregistry.h"
#include "frame/preferencekeys.h"
#include "frame/preferences.h"
#include "frame/ui/messageboxprompt.h"
#include "frame/window/preferences/preferencesdialog.h"
#include "tests/support/testmodule.h"
#include "tests/support/testsettings.h"

#include <QApplication>
#include <QFile>
#include <QFormLayout>
#include <QLineEdit>
#include <QListWidget>

namespace {

class CDemoModule : public CTestModule
{
public:
    using CTestModule::CTestModule;
    QWidget* CreatePreferencesWidget(QWidget* pParent) override
    {
        auto* const pPage = new QWidget(pParent);
        auto* const pForm = new QFormLayout(pPage);
        pForm->addRow("Solver", new QLineEdit);
        return pPage;
    }
};

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication application(argc, argv);
    const CTestSettings testSettings;
    const QStringList sArgumentList = application.arguments();
    CMessageBoxPrompt prompt;
    UserPrompt::Install(&prompt);
    CModuleRegistry::Instance().SetFactory(0, [] { return std::make_unique<CDemoModule>(0, "Velor"); });
    CModuleRegistry::Instance().CreateModules();
    CPreferences& preferences = CPreferences::Instance();
    Set(preferences, PreferenceKey::REMOTE_NAME, 1, "cluster.example");
    Set(preferences, PreferenceKey::REMOTE_NAME, 2, "A workstation with a rather long name of its own");
    Set(preferences, PreferenceKey::REMOTE_AUTHENTICATION, 2, 1);
    Set(preferences, PreferenceKey::FONT_INCREMENT, sArgumentList.value(2).toInt());
    if (QFile sheet(sArgumentList.value(3)); sArgumentList.size() > 3 && sheet.open(QIODevice::ReadOnly))
        application.setStyleSheet(QString::fromUtf8(sheet.readAll()));
    CPreferencesDialog dialog;
    dialog.findChild<QListWidget*>("m_pListWidget")->setCurrentRow(sArgumentList.value(1).toInt());
    return dialog.exec();
}
