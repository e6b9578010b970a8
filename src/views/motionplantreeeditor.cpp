#include "motionplantreeeditor.h"

#include "camsettingsview.h"
#include "motionpointediting.h"
#include "motionpointpaste.h"
#include "motionpointtablemodel.h"
#include "pointeditview.h"

#include "camdesigner/camdescriptionimplementation.h"
#include "widgets/tableclipboard.h"
#include "model/cameditormodel.h"
#include "model/motionlaw.h"
#include "model/motionpoint.h"
#include "plots/pointselection.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

constexpr int TypeCount = 4;

// The segment type and section law cells are edited with a combo box; a
// choice commits at once.
class SegmentTypeDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const bool law = index.column() == MotionPointTableModel::LawColumn;
        if (index.column() != MotionPointTableModel::TypeColumn && !law)
            return QStyledItemDelegate::createEditor(parent, option, index);
        auto *box = new QComboBox(parent);
        box->setObjectName(law ? QStringLiteral("sectionLawBox") : QStringLiteral("segmentTypeBox"));
        if (law) {
            for (int i = 0; i < MotionPoint::SectionLawCount; ++i)
                box->addItem(MotionPoint::sectionLawDisplayName(i));
        } else {
            for (int i = 0; i < TypeCount; ++i)
                box->addItem(MotionPoint::typeDisplayName(MotionPoint::typeForIndex(i)));
        }
        connect(box, QOverload<int>::of(&QComboBox::activated), this, [this, box] {
            emit const_cast<SegmentTypeDelegate *>(this)->commitData(box);
            emit const_cast<SegmentTypeDelegate *>(this)->closeEditor(box);
        });
        return box;
    }
    void setEditorData(QWidget *editor, const QModelIndex &index) const override
    {
        if (auto *box = qobject_cast<QComboBox *>(editor))
            box->setCurrentIndex(index.data(Qt::EditRole).toInt());
        else
            QStyledItemDelegate::setEditorData(editor, index);
    }
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override
    {
        if (auto *box = qobject_cast<QComboBox *>(editor))
            model->setData(index, box->currentIndex());
        else
            QStyledItemDelegate::setModelData(editor, model, index);
    }
};

} // namespace

MotionPlanTreeEditor::MotionPlanTreeEditor(CamEditorModel *editorModel, ParameterModel *parameterModel,
                                           QUndoStack *undoStack, QWidget *parent)
    : QWidget(parent)
    , m_editing(std::make_unique<MotionPointEditing>(editorModel, parameterModel, undoStack))
    , m_model(new MotionPointTableModel(m_editing.get(), this, this))
    , m_settings(new CamSettingsView(m_editing.get()))
    , m_tree(new QTreeView)
    , m_pointEdit(new PointEditView(m_editing.get()))
    , m_add(new QPushButton)
    , m_remove(new QPushButton)
    , m_removeAction(new QAction(this))
    , m_copyAction(nullptr)
    , m_pasteAction(new QAction(this))
    , m_camBox(new QGroupBox)
    , m_pointsBox(new QGroupBox)
    , m_pointBox(new QGroupBox)
{
    m_tree->setModel(m_model);
    m_tree->setRootIsDecorated(false);
    m_tree->setUniformRowHeights(true);
    m_tree->setAlternatingRowColors(true);
    m_tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_tree->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_tree->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed
                            | QAbstractItemView::AnyKeyPressed);
    m_tree->setItemDelegate(new SegmentTypeDelegate(m_tree));
    // Each column as wide as its header and its texts, the last one taking
    // what is left: with the section columns the panel is narrower than the
    // table, and equal shares cut the headers. The tree scrolls sideways then.
    m_tree->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_tree->header()->setStretchLastSection(true);
    m_tree->setObjectName(QStringLiteral("motionPointTree"));

    m_removeAction->setShortcut(QKeySequence::Delete);
    m_removeAction->setShortcutContext(Qt::WidgetShortcut);
    // Copy, paste and remove also in the tree's context menu.
    m_copyAction = TableClipboard::addCopyAction(m_tree);
    m_pasteAction->setObjectName(QStringLiteral("pastePointsAction"));
    m_pasteAction->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_V));
    m_pasteAction->setShortcutContext(Qt::WidgetShortcut);
    m_tree->addAction(m_pasteAction);
    m_tree->addAction(m_removeAction);
    // The window's Ctrl+V writes the grid points; in the point table, where
    // the user has just copied rows, it pastes them instead.
    m_tree->installEventFilter(this);

    (new QVBoxLayout(m_camBox))->addWidget(m_settings);
    auto *pointsLayout = new QVBoxLayout(m_pointsBox);
    pointsLayout->addWidget(m_tree, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_add);
    buttons->addWidget(m_remove);
    buttons->addStretch();
    pointsLayout->addLayout(buttons);
    (new QVBoxLayout(m_pointBox))->addWidget(m_pointEdit);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_camBox);
    layout->addWidget(m_pointsBox, 1);
    layout->addWidget(m_pointBox);

    connect(m_add, &QPushButton::clicked, this, &MotionPlanTreeEditor::addPoint);
    connect(m_remove, &QPushButton::clicked, this, &MotionPlanTreeEditor::removePoint);
    connect(m_removeAction, &QAction::triggered, this, &MotionPlanTreeEditor::removePoint);
    connect(m_pasteAction, &QAction::triggered, this, &MotionPlanTreeEditor::pastePoints);
    connect(m_tree->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &MotionPlanTreeEditor::onCurrentChanged);
    // A load replaces every row: the selection is found again by its master.
    connect(m_model, &QAbstractItemModel::modelAboutToBeReset, this, &MotionPlanTreeEditor::rememberSelection);
    connect(m_model, &QAbstractItemModel::modelReset, this, &MotionPlanTreeEditor::restoreSelection);
    // Removing the selected row (from any panel) moves the current index to a
    // neighbour but leaves nothing selected: the neighbour becomes the
    // selection, so that the fields and the selection show the same point.
    connect(m_model, &QAbstractItemModel::rowsRemoved, this, [this] {
        const QModelIndex current = m_tree->selectionModel()->currentIndex();
        if (current.isValid() && !m_tree->selectionModel()->isSelected(current))
            selectRow(current.row());
    });
    connect(editorModel, &CamEditorModel::changed, this, &MotionPlanTreeEditor::refresh);
    // A point made current elsewhere (a marker pressed, dragged or inserted
    // in a plot) selects its row.
    PointSelection *selection = PointSelection::of(editorModel);
    const auto follow = [this, selection] {
        if (m_announcing)
            return;
        const int row = selection->current() ? m_editing->editorModel()->rowOfMotionPoint(selection->current()) : -1;
        if (row >= 0 && row != currentRow())
            selectRow(row);
    };
    if (selection)
        connect(selection, &PointSelection::currentChanged, this, follow);
    retranslate();
    // A reopened editor shows the point the plots still ring.
    if (selection)
        follow();
}

void MotionPlanTreeEditor::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void MotionPlanTreeEditor::retranslate()
{
    m_add->setText(tr("Hinzufügen"));
    m_remove->setText(tr("&Punkt entfernen"));
    m_removeAction->setText(tr("&Punkt entfernen"));
    m_pasteAction->setText(tr("Einfügen"));
    m_camBox->setTitle(tr("Kurve"));
    m_pointsBox->setTitle(tr("Bewegungspunkte"));
    m_pointBox->setTitle(tr("Ausgewählter Bewegungspunkt"));
    // The header and the segment type cells are translated as they are read.
    refresh();
}

MotionPlanTreeEditor::~MotionPlanTreeEditor() = default;

int MotionPlanTreeEditor::currentRow() const
{
    const QModelIndex current = m_tree->selectionModel()->currentIndex();
    return current.isValid() && m_tree->selectionModel()->isSelected(current) ? current.row() : -1;
}

void MotionPlanTreeEditor::selectRow(int row)
{
    if (row < 0 || row >= m_model->rowCount()) {
        m_tree->selectionModel()->clear();
        m_pointEdit->setPoint(nullptr);
        return;
    }
    const QModelIndex index = m_model->index(row, MotionPointTableModel::MasterColumn);
    m_tree->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    m_tree->scrollTo(index);
    // After a removal the current index may already sit on this row, with the
    // selection cleared by the removal: no currentRowChanged() then, so the
    // fields and the remove controls are brought up to date here.
    onCurrentChanged(index);
}

void MotionPlanTreeEditor::addPoint()
{
    double master = 0.0;
    double slave = 0.0;
    int type = MotionPoint::rest;
    m_editing->proposeNewPoint(currentRow(), &master, &slave, &type);
    if (m_editing->add(this, master, slave, type))
        selectRow(m_editing->editorModel()->rowOfMotionPoint(m_editing->editorModel()->camDescription()->pointAt(master)));
}

void MotionPlanTreeEditor::removePoint()
{
    const int row = currentRow();
    if (row < 0)
        return;
    if (m_editing->remove(m_editing->editorModel()->motionPointAt(row)))
        selectRow(qMin(row, m_model->rowCount() - 1));
}

void MotionPlanTreeEditor::pastePoints()
{
    MotionPointPaste::paste(this, *m_editing, QGuiApplication::clipboard()->text());
}

bool MotionPlanTreeEditor::eventFilter(QObject *watched, QEvent *event)
{
    const bool key = event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
    if (watched != m_tree || !key || !static_cast<QKeyEvent *>(event)->matches(QKeySequence::Paste))
        return QWidget::eventFilter(watched, event);
    // Taking the override keeps the window's shortcut from firing; the key
    // press that follows is the paste.
    event->accept();
    if (event->type() == QEvent::KeyPress)
        pastePoints();
    return true;
}

void MotionPlanTreeEditor::refresh()
{
    m_model->refresh();
    const CamEditorModel *model = m_editing->editorModel();
    m_tree->setColumnHidden(MotionPointTableModel::TypeColumn, model->motionLaw()->law() != MotionLaw::Vdi);
    m_remove->setEnabled(currentRow() >= 0);
    m_removeAction->setEnabled(currentRow() >= 0);
}

void MotionPlanTreeEditor::onCurrentChanged(const QModelIndex &current)
{
    MotionPoint *point = current.isValid() ? m_editing->editorModel()->motionPointAt(current.row()) : nullptr;
    m_pointEdit->setPoint(point);
    // The table's own change comes back from the selection: not taken as a
    // request to select again (the click is still placing its index).
    if (PointSelection *selection = PointSelection::of(m_editing->editorModel())) {
        m_announcing = true;
        selection->setCurrent(point);
        m_announcing = false;
    }
    m_remove->setEnabled(current.isValid());
    m_removeAction->setEnabled(current.isValid());
}

void MotionPlanTreeEditor::rememberSelection()
{
    const int row = currentRow();
    m_hadSelection = row >= 0;
    if (m_hadSelection)
        m_selectedMaster = m_editing->editorModel()->motionPointAt(row)->master();
}

void MotionPlanTreeEditor::restoreSelection()
{
    const CamEditorModel *model = m_editing->editorModel();
    const MotionPoint *point = m_hadSelection ? model->camDescription()->pointAt(m_selectedMaster) : nullptr;
    selectRow(point ? model->rowOfMotionPoint(point) : -1);
}
