// SPDX-License-Identifier: MIT
// Shows ListRows to Qt's views. It owns no row: whoever changes the rows, or what they stand for,
// says so here.
#pragma once

#include "editor/lists/row_cells.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QPixmap>
#include <QRgb>

namespace fennel {

class ListModel : public QAbstractTableModel {
    Q_OBJECT
public:
    // Pictures of rows are scaled into `iconSize`, pixels. The lists outlive the model.
    ListModel(const ParamLists& lists, QSize iconSize, QObject* parent = nullptr);

    // The rows outlive the model or are replaced by null first.
    void setRows(const ListRows* rows);
    [[nodiscard]] const ListRows* rows() const { return m_rows; }
    // All rows may have changed; the selection of the views is lost.
    void reset();
    // The cells of the rows changed, their number did not.
    void refresh();
    // Pixels; pictures are read anew in the new size.
    void setIconSize(QSize size);
    // The colour of the list behind the rows.
    void setGround(QRgb ground) { m_ground = ground; }
    // Whether the row has a swatch or a picture, which is not loaded for that.
    [[nodiscard]] bool hasDecoration(const QModelIndex& index) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    // A click on a check box: the rows are not changed here, checkAsked() tells who decides.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

Q_SIGNALS:
    // `row` from 1.
    void checkAsked(int row, bool checked);

private:
    [[nodiscard]] const ListRow* rowAt(const QModelIndex& index) const;
    // Made anew for another row and at every refresh.
    [[nodiscard]] const RowLook& lookOf(const ListRow& row) const;
    [[nodiscard]] QVariant decoration(const ListRow& row) const;
    [[nodiscard]] QPixmap picture(const QString& path) const;
    void pictureCame(const QString& key, const Result<FilePicture>& read);
    [[nodiscard]] QPixmap swatch(QRgb colour) const;

    const ParamLists& m_lists;
    const ListRows* m_rows = nullptr;
    mutable const ListRow* m_lookedAt = nullptr; // the row of m_look
    mutable RowLook m_look;
    QSize m_iconSize;
    QRgb m_ground = 0xffffffff;
    // Kept, for the views' style keeps a copy of each pixmap that it has not seen before.
    mutable QHash<QString, QPixmap>
        m_pictures; // by path, time and size of the file; blank at first
    mutable QHash<QRgb, QPixmap> m_swatches;
};

} // namespace fennel
