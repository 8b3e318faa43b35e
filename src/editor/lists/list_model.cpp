// SPDX-License-Identifier: MIT
#include "editor/lists/list_model.h"

#include "base/text.h"
#include "params/swatch.h"

#include <QBrush>
#include <QDateTime>
#include <QFileInfo>
#include <QFont>
#include <QIcon>

namespace fennel {

namespace {

// A text of a megabyte would be measured and drawn for seconds; the row itself keeps it whole.
constexpr qsizetype longestShown = 500;

QString shortened(const QString& text)
{
    return text.size() > longestShown ? text.left(longestShown) + QChar(u'…') : text;
}

// The same in a selected row, where a bare picture would be tinted by the selection.
QIcon plainIcon(const QPixmap& picture)
{
    QIcon icon(picture);
    icon.addPixmap(picture, QIcon::Selected);
    return icon;
}

} // namespace

ListModel::ListModel(const ParamLists& lists, QSize iconSize, QObject* parent)
    : QAbstractTableModel(parent), m_lists(lists), m_iconSize(iconSize)
{
}

void ListModel::setRows(const ListRows* rows)
{
    beginResetModel();
    m_rows = rows;
    m_lookedAt = nullptr;
    endResetModel();
}

void ListModel::reset()
{
    beginResetModel();
    m_lookedAt = nullptr;
    endResetModel();
}

// Unlike reset() this keeps selection and scroll place, for changes within rows.
void ListModel::refresh()
{
    m_lookedAt = nullptr;
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void ListModel::setIconSize(QSize size)
{
    m_iconSize = size;
    // They were read in the old size.
    m_lists.document->shell().pictures().forget(this);
    m_pictures.clear();
    m_swatches.clear();
}

int ListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() || m_rows == nullptr ? 0 : m_rows->count();
}

int ListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() || m_rows == nullptr ? 0 : static_cast<int>(m_rows->columns.size());
}

const ListRow* ListModel::rowAt(const QModelIndex& index) const
{
    return m_rows == nullptr || !index.isValid() ? nullptr : m_rows->row(index.row() + 1);
}

// The views ask for one row's cells and roles in a run.
const RowLook& ListModel::lookOf(const ListRow& row) const
{
    if (m_lookedAt != &row) {
        m_look = rowLook(*m_lists.document, *m_rows, row, m_lists.CurrentMenuFile);
        m_lookedAt = &row;
    }
    return m_look;
}

QVariant ListModel::data(const QModelIndex& index, int role) const
{
    const ListRow* row = rowAt(index);
    if (row == nullptr)
        return {};
    const RowLook& look = lookOf(*row);
    const auto column = static_cast<std::size_t>(index.column());
    const RowCell cell = column < look.cells.size() ? look.cells[column] : RowCell{};
    switch (role) {
    case Qt::DisplayRole:
        return shortened(cell.text);
    case Qt::ToolTipRole:
        return cell.toolTip.isEmpty() ? QVariant() : QVariant(plainTip(shortened(cell.toolTip)));
    // A cell's own colour goes before the row's.
    case Qt::ForegroundRole: {
        const std::optional<QRgb> colour = cell.colour ? cell.colour : look.colour;
        return colour ? QVariant(QBrush(QColor(textOnGround(*colour, m_ground)))) : QVariant();
    }
    case Qt::FontRole: {
        QFont font;
        font.setBold(cell.bold || look.bold);
        return font;
    }
    case Qt::CheckStateRole:
        if (column == 0 && look.checked)
            return *look.checked ? Qt::Checked : Qt::Unchecked;
        return {};
    case Qt::DecorationRole:
        return column == 0 ? decoration(*row) : QVariant();
    default:
        return {};
    }
}

bool ListModel::hasDecoration(const QModelIndex& index) const
{
    const ListRow* row = rowAt(index);
    return row != nullptr && (!row->iconFile.isEmpty() || lookOf(*row).swatch);
}

QVariant ListModel::decoration(const ListRow& row) const
{
    const std::optional<QRgb> colour = lookOf(row).swatch;
    if (!row.iconFile.isEmpty()) {
        const QPixmap image = picture(row.iconFile);
        return image.isNull() ? QVariant() : QVariant(plainIcon(image));
    }
    return colour ? QVariant(plainIcon(swatch(*colour))) : QVariant();
}

QPixmap ListModel::swatch(QRgb colour) const
{
    constexpr qsizetype keptSwatches = 256; // a slider passes through more colours than it shows
    if (m_swatches.size() >= keptSwatches)
        m_swatches.clear();
    QPixmap& kept = m_swatches[colour];
    if (kept.isNull())
        kept = QPixmap::fromImage(swatchImage(colour, m_iconSize));
    return kept;
}

QPixmap ListModel::picture(const QString& path) const
{
    const QFileInfo info(path);
    // Time and size are part of the key: a picture that was replaced under its name must not show
    // as before.
    const QString key = path + QLatin1Char('|') +
                        QString::number(info.lastModified().toMSecsSinceEpoch()) +
                        QLatin1Char('|') + QString::number(info.size());
    const auto found = m_pictures.constFind(key);
    if (found != m_pictures.constEnd())
        return *found;
    // Its room, until it has come: the list is on the screen before its pictures are read.
    QPixmap blank(m_iconSize);
    blank.fill(Qt::transparent);
    m_pictures.insert(key, blank);
    auto* model = const_cast<ListModel*>(this);
    m_lists.document->shell().pictures().ask(
        {path, PictureMode::Inside, m_iconSize}, model,
        [model, key](const Result<FilePicture>& read) { model->pictureCame(key, read); });
    return blank;
}

void ListModel::pictureCame(const QString& key, const Result<FilePicture>& read)
{
    // A picture that cannot be read is kept too, as an empty one, and is not tried again at each
    // repaint.
    m_pictures[key] = read ? QPixmap::fromImage(read->image.scaled(m_iconSize, Qt::KeepAspectRatio,
                                                                   Qt::SmoothTransformation))
                           : QPixmap();
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, 0), {Qt::DecorationRole});
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
        section >= columnCount())
        return {};
    return m_rows->columns[section];
}

Qt::ItemFlags ListModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    const ListRow* row = rowAt(index);
    if (row != nullptr && index.column() == 0 && lookOf(*row).checked)
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

// The model never changes the rows itself: whether a mark may change is decided by who listens.
bool ListModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole)
        return false;
    Q_EMIT checkAsked(index.row() + 1, value.toInt() == Qt::Checked);
    return true;
}

} // namespace fennel
