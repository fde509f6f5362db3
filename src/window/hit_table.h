#pragma once

#include <QAbstractTableModel>
#include <QStyledItemDelegate>

#include "session/main_form.h"
#include "window/theme.h"

namespace commtest {

// The hits of a search, the columns being address, baud rate, reply time, first bytes and check word.
class HitModel : public QAbstractTableModel {
  public:
    enum Column { kAddress, kRate, kReplyTime, kFirstBytes, kCheckWord, kColumns };

    HitModel(const MainForm& form, QObject* parent);

    // Tells the view what has come or gone since the last time.
    void Follow();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    // Headings and hits, a line each: fields between commas, UTF-8 behind its mark.
    QByteArray AsCsv() const;

  private:
    const MainForm& form_;
    int rows_ = 0;
};

class HitDelegate : public QStyledItemDelegate {
  public:
    HitDelegate(const MainForm& form, const Theme& theme, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

  private:
    const MainForm& form_;
    const Theme& theme_;
    QFont uiFont_ = Theme::UiFont();
    QFont codeFont_ = Theme::MonoFont();
};

}  // namespace commtest
