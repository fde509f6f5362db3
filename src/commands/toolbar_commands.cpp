#include "commands/toolbar_commands.h"

#include "catalogue/channel_table.h"
#include "catalogue/instrument_selection.h"
#include "catalogue/parameter_list_import.h"
#include "commands/startup.h"
#include "host/dialogs.h"
#include "session/main_form.h"
#include "session/start_stop.h"

namespace commtest {

void RunToolbarCommand(MainForm& form, int index) {
    switch (index) {
        case toolbar::kImport:
            if (form.outside.dialogs.AskYesNo(Text(kImportQuestion)))
                ImportParameterList(form.outside.store, form.outside.files, form.outside.dialogs,
                                    form.switches);
            break;
        case toolbar::kSearch: form.FindFrame.SetVisible(!form.FindFrame.Visible()); break;
        case toolbar::kStartStop: StartOrStop(form, {StopCause::User}); break;
        case toolbar::kChannelTable: GenerateChannelTable(form.outside.files); break;
        case toolbar::kLeave: Form_Unload(form); break;
        default: break;  // Q185
    }
}

TextView CaptionOf(ToolbarEntry entry) {
    switch (entry) {
        case ToolbarEntry::ToolWindow: return u"系统小工具";
        case ToolbarEntry::OperationMenu: return u"指令选择";
        case ToolbarEntry::ReloadParameters: return u"参数地址确认";
        case ToolbarEntry::ExportCurrentTable: return u"导出当前参数地址表";
        case ToolbarEntry::ExportAllTables: return u"导出全部参数地址表";
    }
    return {};
}

void ToolbarMenuCommand(MainForm& form, ToolbarEntry entry) {
    switch (entry) {
        case ToolbarEntry::ToolWindow: return RunIfSet(form.ToolWindowWanted);
        case ToolbarEntry::ReloadParameters: return ConMeterName_Click(form);
        case ToolbarEntry::OperationMenu:
        case ToolbarEntry::ExportCurrentTable:
        case ToolbarEntry::ExportAllTables: return;
    }
}

}  // namespace commtest
