#include "window/empty_pages.h"

#include "host/serial_port.h"
#include "host/store.h"
#include "host_qt/words.h"
#include "session/port_settings.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPortTab = 1;

bool IsEmpty(const GridView& list) { return list.model()->rowCount() == 0; }

void CoverPane(Binder& binder, const Theme& theme, RecordView& pane, const EmptyWords& words,
               std::function<bool()> isEmpty) {
    auto* state = new EmptyState({}, words, theme, pane.viewport());
    state->setAttribute(Qt::WA_TransparentForMouseEvents);
    state->CoverWhile(binder, std::move(isEmpty));
}

}  // namespace

void AddEmptyCatalogueState(Binder& binder, const Theme& theme, GridView& list,
                            const WaysToFillCatalogue& ways) {
    auto* state = new EmptyState(u"special-address"_s,
                                 {Words::tr("目录里没有仪表"),
                                  Words::tr("把 TQ.ini 放进程序文件夹后导入"),
                                  {{u"导入地址"_s, ways.import}, {Words::tr("恢复备份..."), ways.restore}}},
                                 theme, &list);
    state->CoverWhile(
        binder, [&form = binder.Form(), &list] { return form.outside.store.IsOpen() && IsEmpty(list); });
}

void AddEmptyRecordingsState(Binder& binder, const Theme& theme, GridView& list,
                             std::function<void()> import) {
    MainForm& form = binder.Form();
    const auto capture = [&binder, &form] { binder.Event([&form] { form.ConSaveData.Set(true); }); };
    auto* state =
        new EmptyState(u"history"_s,
                       {Words::tr("没有录制的数据"),
                        Words::tr("勾选 数据采集 并开始通讯，\n每一种应答存一条"),
                        {{Words::tr("开始采集"), capture}, {Words::tr("导入录制"), std::move(import)}}},
                       theme, &list);
    state->CoverWhile(binder, [&form, &list] { return form.outside.store.IsOpen() && IsEmpty(list); });
}

void AddEmptyRecordState(Binder& binder, const Theme& theme, RecordView& record) {
    CoverPane(binder, theme, record,
              {Words::tr("没有通讯记录"), Words::tr("选定仪表后按 F5 开始通讯，收发的帧显示在这里")},
              [&form = binder.Form()] { return form.Record().Blocks().empty() && !form.IsRunning(); });
}

void AddEmptyExplanationState(Binder& binder, const Theme& theme, RecordView& explanation) {
    CoverPane(binder, theme, explanation,
              {Words::tr("没有换算过程"), Words::tr("单击一个数值，这里说明它怎样得来")},
              [&form = binder.Form()] { return form.Explanation().Blocks().empty(); });
}

EmptyState* MakeNoPortState(Binder& binder, const Theme& theme, QWidget* parent) {
    MainForm& form = binder.Form();
    auto* state = new EmptyState(u"glyph-plug"_s, {}, theme, parent);
    const auto lookUp = [state, &form] { state->setVisible(form.MSComm1.Devices().empty()); };
    const auto lookAgain = [&binder, &form, lookUp] {
        binder.Event([&form] { OfferPorts(form); });
        lookUp();
    };
    state->Say({Words::tr("没有找到串口"),
                Words::tr("插入转换器后再打开列表，\n或写 COM1=/dev/ttyS0 指定设备"),
                {{Words::tr("重新查找"), lookAgain}}});
    state->hide();
    binder.Watch(form.SSTab2, [&form, lookUp] {
        if (form.SSTab2.IsChosen(kPortTab)) lookUp();
    });
    return state;
}

}  // namespace commtest
