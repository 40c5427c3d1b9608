#pragma once

#include "bench/Office.h"
#include "bench/Table.h"

#include <QStringList>

#include <cstddef>
#include <span>

namespace quorvane::bench {

/// The statement of every client, in a process of its own (StatementProcess) because of its peak
/// of memory, and the rebuild of all holdings, both beside a raw read of the same rows.
void MeasureStatementAndRebuild(Table& table, const Office& office, const Portfolio& portfolio);

/// What the measuring process does: `arguments` are the server's socket, the database and a file
/// for the statement.
int StatementProcess(const QStringList& arguments);

void MeasureImport(Table& table, const Office& office, const Portfolio& portfolio);

/// 100,000 trades of a broker's file, read, looked through and saved.
void MeasureTrades(Table& table, const Office& office);

void MeasureMatching(Table& table, std::span<const std::size_t> line_counts);
void MeasureBill(Table& table, const Office& office);
void MeasureStart(Table& table);

/// The search, and what the main window shows while no window is open.
void MeasureDesk(Table& table, const Office& office, const Portfolio& portfolio);

/// A report of 2,000 pages in each of its outputs.
void MeasurePages(Table& table);

}  // namespace quorvane::bench
