#include "session/toolbar_commands.h"

#include "session/main_form.h"

namespace commtest {

namespace {

void SetErrorFileButtonsEnabled(MainForm& form, bool enabled) {
    for (Presence& button : form.ClearFileCommand) button.SetEnabled(enabled);
}

void Start(MainForm& form) {
    form.StaticSample.clear();
    form.DynamicSample.clear();
    SetErrorFileButtonsEnabled(form, false);
    form.SetRunning(true);
    form.CycleStep = 1;
    form.Timer1[1].SetEnabled(true);
    form.files.OpenErrorFile();
}

void Stop(MainForm& form) {
    form.SetRunning(false);
    form.CycleStep = 0;
    form.files.CloseErrorFile();
    SetErrorFileButtonsEnabled(form, true);
}

}  // namespace

void RunToolbarCommand(MainForm& form, int index) {
    switch (index) {
        case toolbar::kImport:
            if (form.dialogs.AskYesNo(u"确定要重新导入仪表的参数地址表吗？"))
                form.companions.ImportParameterList(form);
            break;
        case toolbar::kSearch: form.FindFrame.SetVisible(!form.FindFrame.Visible()); break;
        case toolbar::kStartStop:
            if (form.IsRunning()) {
                Stop(form);
            } else {
                Start(form);
            }
            break;
        case toolbar::kExport: form.companions.ExportParameterLists(form); break;
        case toolbar::kLeave: form.companions.Leave(form); break;
        default: break;
    }
}

void ToolbarMenuCommand(MainForm& form, TextView caption) {
    if (caption == u"系统小工具") form.companions.OpenToolWindow(form);
    if (caption == u"参数地址确认") form.companions.ReloadParameters(form);
    if (caption == u"导出当前参数地址表") form.companions.ExportCurrentTable(form);
    if (caption == u"导出全部参数地址表") form.companions.ExportAllTables(form);
}

}  // namespace commtest
