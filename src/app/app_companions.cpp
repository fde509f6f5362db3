#include "app/app_companions.h"

#include "app/startup.h"
#include "app/tool_window.h"
#include "session/main_form.h"

namespace commtest {

namespace {

void SayNotThereYet(MainForm& form, TextView feature) {
    form.StatusNote.Set(Text(feature) + u": 此功能尚未提供");
}

}  // namespace

void AppCompanions::SwitchCapture(MainForm& form) { SayNotThereYet(form, u"数据采集"); }
void AppCompanions::SwitchReplay(MainForm& form) { SayNotThereYet(form, u"数据演示"); }
void AppCompanions::CaptureExchange(MainForm& form) { SayNotThereYet(form, u"数据采集"); }
void AppCompanions::ReplayReply(MainForm& form) { SayNotThereYet(form, u"数据演示"); }

bool AppCompanions::NextSearchStep(MainForm& form) {
    SayNotThereYet(form, u"仪表搜索");
    return false;
}

void AppCompanions::ImportParameterList(MainForm& form) { SayNotThereYet(form, u"导入地址"); }
void AppCompanions::ExportParameterLists(MainForm& form) { SayNotThereYet(form, u"特殊地址"); }
void AppCompanions::ExportCurrentTable(MainForm& form) { SayNotThereYet(form, u"导出当前参数地址表"); }
void AppCompanions::ExportAllTables(MainForm& form) { SayNotThereYet(form, u"导出全部参数地址表"); }
void AppCompanions::ReloadParameters(MainForm& form) { SayNotThereYet(form, u"参数地址确认"); }
void AppCompanions::OpenToolWindow(MainForm& form) { ShowToolWindow(tools_, form.store); }
void AppCompanions::Leave(MainForm& form) { Form_Unload(form); }
void AppCompanions::FindCommMeter(MainForm& form) { SayNotThereYet(form, u"仪表搜索"); }
void AppCompanions::LoadRecording(MainForm& form, int) { SayNotThereYet(form, u"演示数据"); }
void AppCompanions::ChangeRecording(MainForm& form, int, int) { SayNotThereYet(form, u"演示数据"); }
void AppCompanions::ShowChipFilePanel(MainForm& form) { SayNotThereYet(form, u"芯片资料"); }
void AppCompanions::ShowChipRecord(MainForm& form, int) { SayNotThereYet(form, u"芯片资料"); }

}  // namespace commtest
