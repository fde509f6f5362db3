#include "app/app_companions.h"

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
void AppCompanions::OpenToolWindow(MainForm& form) { SayNotThereYet(form, u"系统小工具"); }
void AppCompanions::Leave(MainForm& form) { SayNotThereYet(form, u"退出系统"); }
void AppCompanions::LoadRecording(MainForm& form, int) { SayNotThereYet(form, u"演示数据"); }
void AppCompanions::ShowChipRecord(MainForm& form, int) { SayNotThereYet(form, u"芯片资料"); }

}  // namespace commtest
