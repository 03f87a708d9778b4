// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "find/windows/frmFind.h"

#include "common/SharedState.h"
#include "desktop/Desktop.h"
#include "engine/language/EngineError.h"
#include "find/FindCriteria.h"
#include "forms/AccessKeys.h"
#include "forms/EditButtons.h"
#include "forms/FirstSize.h"
#include "forms/HelpKey.h"
#include "store/CoinFile.h"
#include "store/ErrorHandling.h"
#include "ui_frmFind.h"
#include <QSignalBlocker>
#include <QWindow>

namespace obelmark {

using namespace Qt::StringLiterals;

frmFind::frmFind(SharedState &shared)
    : m_shared(shared), m_fields(Catalogue::read(shared.AppFolder).fieldsOf(shared.UseWith)),
      m_ui(std::make_unique<Ui::frmFind>())
{
    m_ui->setupUi(this);
    keepPlaceWhenHidden(m_ui->lblToFind);
    keepPlaceWhenHidden(m_ui->txtToFind);
    new AccessKeys(*this);
    new HelpKey(*this, shared.desktop, shared.HelpFilePath);
    Form_Load();

    const auto connectClick = [this](QListWidget *list, void (frmFind::*click)()) {
        const auto handler = [this, click] { run([&] { (this->*click)(); }); };
        connect(list, &QListWidget::currentRowChanged, this, handler);
        // Also on the entry that is chosen already.
        connect(list, &QListWidget::itemClicked, this, handler);
    };
    connectClick(m_ui->lstField, &frmFind::ShowOperators);
    connectClick(m_ui->lstBool, &frmFind::lstBool_Click);
    connect(m_ui->txtToFind, &QLineEdit::textChanged, this, [this] { run([&] { txtToFind_Change(); }); });
    connect(m_ui->cmdFind, &QPushButton::clicked, this, [this] { run([&] { cmdFind_Click(); }); });
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmFind::cmdCancel_Click);
}

frmFind::~frmFind() = default;

void frmFind::Form_Load()
{
    for (const CatalogueField &field : m_fields) {
        auto *item = new QListWidgetItem(field.desc, m_ui->lstField);
        item->setData(Qt::UserRole, field.specid);
    }
    m_ui->lstField->setCurrentRow(0);
    const std::pair<QListWidget *, FindKind> lists[] = {
        {m_ui->lstNum, FindKind::Number}, {m_ui->lstText, FindKind::Text}, {m_ui->lstBool, FindKind::YesNo}};
    for (const auto &[list, kind] : lists) {
        for (const FindOperator &op : findOperators(kind)) {
            auto *item = new QListWidgetItem(QString::fromUtf16(op.caption), list);
            item->setData(Qt::UserRole, list->count());
        }
        list->setCurrentRow(0);
    }
    setFirstSize(*this);
    run([&] { ShowOperators(); });
}

void frmFind::showModal(QWidget &owner)
{
    winId(); // makes the window that is to stay above the owner's
    windowHandle()->setTransientParent(owner.windowHandle());
    exec();
}

void frmFind::run(const std::function<void()> &procedure)
{
    try {
        attempt(m_shared, procedure);
    } catch (const DatabaseRepaired &) {
        // CoinRecordset is a new one now, on which nothing has been searched.
        m_shared.FindCancelled = true;
    }
}

bool frmFind::tryField(const CatalogueField &field, const std::function<void()> &statement)
{
    try {
        statement();
        return true;
    } catch (const EngineError &error) {
        switch (error.number()) {
        case UnknownColumn:
        case UnknownTable:
        case AmbiguousColumn:
        case SyntaxError:
            break;
        default:
            throw;
        }
    }
    m_shared.desktop.showMessage(
        u"The field '%1' cannot be searched:  what the report field catalogue says of it is not in the "
        "database."_s.arg(field.desc));
    return false;
}

const CatalogueField *frmFind::selectedField() const
{
    const QListWidgetItem *item = m_ui->lstField->currentItem();
    const auto field =
        std::ranges::find(m_fields, item ? item->data(Qt::UserRole).toInt() : 0, &CatalogueField::specid);
    return field == m_fields.end() ? nullptr : &*field;
}

QListWidget *frmFind::operatorList(const CatalogueField &field) const
{
    switch (findKind(field)) {
    case FindKind::Text:
        return m_ui->lstText;
    case FindKind::Entry:
        return m_ui->lstSel;
    case FindKind::Number:
    case FindKind::Date:
        return m_ui->lstNum;
    case FindKind::YesNo:
        return m_ui->lstBool;
    }
    Q_UNREACHABLE();
}

void frmFind::ShowOperators()
{
    const CatalogueField *field = selectedField();
    if (!field)
        return;
    QListWidget *list = operatorList(*field);
    m_ui->stkOperator->setCurrentWidget(list);
    const bool isValue = list == m_ui->lstSel || list == m_ui->lstBool;
    m_ui->lblOperator->setText(isValue ? u"Select Value"_s : u"Operator"_s);
    m_ui->lblOperator->setBuddy(list);
    m_ui->lblToFind->setVisible(!isValue);
    m_ui->txtToFind->setVisible(!isValue);
    if (list == m_ui->lstSel)
        fillEntries(*field);
}

void frmFind::fillEntries(const CatalogueField &field)
{
    QListWidget *list = m_ui->lstSel;
    list->clear();
    tryField(field, [&] {
        QStringList descriptions;
        QList<qint64> keys;
        const auto rows = coinDatabase(m_shared).openSnapshot(entriesQuery(field));
        for (; !rows->eof(); rows->moveNext()) {
            descriptions << rows->value(u"descr").toText();
            keys << rows->value(u"id").toInt();
        }
        // All at once, and the keys, which nobody sees, in silence: ten times faster with many entries.
        list->addItems(descriptions);
        const QSignalBlocker silence(list->model());
        for (int row = 0; row < list->count(); ++row)
            list->item(row)->setData(Qt::UserRole, keys[row]);
    });
}

FindValue frmFind::chosenValue(const CatalogueField &field) const
{
    const QListWidget *list = operatorList(field);
    FindValue value{.operatorIndex = list->currentRow(), .text = m_ui->txtToFind->text()};
    // An entry that is current may still not be chosen: the Tab key stops on the first one.
    if (const auto chosen = m_ui->lstSel->selectedItems(); list == m_ui->lstSel && !chosen.isEmpty())
        value.key = chosen.first()->data(Qt::UserRole).toLongLong();
    return value;
}

void frmFind::search(const QString &criteria)
{
    const std::pair<const QRadioButton *, void (Dynaset::*)(const QString &)> directions[] = {
        {m_ui->optWhere_1, &Dynaset::findFirst},
        {m_ui->optWhere_2, &Dynaset::findPrevious},
        {m_ui->optWhere_3, &Dynaset::findNext},
        {m_ui->optWhere_4, &Dynaset::findLast},
    };
    for (const auto &[option, find] : directions) {
        if (option->isChecked())
            (coinRecordset(m_shared).*find)(criteria);
    }
}

void frmFind::cmdFind_Click()
{
    m_shared.FindCancelled = false;
    const CatalogueField *field = selectedField();
    if (!field)
        return;
    const FindValue value = chosenValue(*field);
    if (const auto refusal = refuseValue(*field, value, m_shared.regional)) {
        m_shared.desktop.showMessage(refusal->text, refusal->title);
        if (refusal->isText)
            m_ui->txtToFind->setFocus();
        return;
    }
    if (tryField(*field, [&] { search(findCriteria(*field, value, m_shared.regional)); }))
        hide();
}

void frmFind::cmdCancel_Click()
{
    hide();
}

void frmFind::lstBool_Click()
{
    searchFromTop();
}

void frmFind::txtToFind_Change()
{
    searchFromTop();
}

/// With another value, Find Next begins at the top.
void frmFind::searchFromTop()
{
    coinRecordset(m_shared).moveFirst();
}

} // namespace obelmark
