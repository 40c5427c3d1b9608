#include "cli/Command.h"
#include "core/positions/Positions.h"
#include "core/text/Amounts.h"
#include "core/text/Csv.h"

#include <map>

namespace quorvane::cli {
namespace {

using positions::Holding;
using positions::Layer;
using positions::Piece;

struct LayerOptions {
  std::string client;
  std::string as_on;
};

/// Writes the rows of one history: every row has all columns, and those that mean nothing for its
/// kind are empty.
class LayerCsv {
 public:
  explicit LayerCsv(const lookups::Directory& directory) : directory_(directory) {}

  void Add(const Holding& holding) {
    for (const Layer& layer : holding.layers) {
      Begin("layer", holding.place);
      Day(layer.acquired);
      Day(layer.entered);
      Quantity(layer.quantity);
      Money(layer.cost);
      out_ += ",,,,\n";
    }
  }

  void Add(const Piece& piece) {
    static const std::map<positions::PieceKind, std::string_view> kKinds{
        {positions::PieceKind::kDelivery, "sale"},
        {positions::PieceKind::kSpeculation, "speculation"},
        {positions::PieceKind::kFo, "fo"},
        {positions::PieceKind::kBuyBack, "buy-back"},
        {positions::PieceKind::kFraction, "fraction"}};
    Begin(piece.has_cost ? kKinds.at(piece.kind) : "without-cost", piece.place);
    Day(piece.acquired);
    Day(piece.entered);
    Quantity(piece.quantity);
    Money(piece.cost);
    Day(piece.sold);
    Money(piece.sale);
    Money(piece.expenses);
    Money(piece.stt);
    out_ += '\n';
  }

  void Add(const positions::Difference& difference) {
    Begin("difference", difference.place);
    Day(difference.of.year.FirstDay());
    out_ += ',';
    Quantity(difference.Excess());
    Money(difference.recorded_cost - difference.computed_cost);
    out_ += ",,,,\n";
  }

  const std::string& Text() const { return out_; }

 private:
  void Begin(std::string_view row, const positions::Place& place) {
    out_ += row;
    out_ += ',';
    text::AppendCsvField(out_, directory_.Account(place.account).number);
    out_ += ',';
    text::AppendCsvField(out_, directory_.Scrip(place.scrip).code);
  }
  void Day(text::Date day) {
    out_ += ',';
    text::AppendDmy(out_, day);
  }
  void Quantity(text::Shares quantity) {
    out_ += ',';
    text::AppendExact(out_, quantity.Number());
  }
  void Money(text::Paise amount) {
    out_ += ',';
    text::AppendPaise(out_, amount.Count());
  }

  const lookups::Directory& directory_;
  std::string out_ =
      "row,account_no,scrip_code,acquired,entered,quantity,cost,sold,sale,expenses,stt\n";
};

MaybeRefusal Layers(Context& context, const LayerOptions& options) {
  const lookups::Directory directory(context.Connection());
  positions::PositionsQuery query;
  const Result<ClientId> client = ClientOf(directory, options.client);
  if (!client) {
    return client.Why();
  }
  query.client = *client;
  if (!options.as_on.empty()) {
    query.to = DateOf("--as-on", options.as_on);
  }
  const auto progress = context.MakeProgress();
  const positions::Positions all = positions::ReadPositions(context.Connection(), query, *progress);
  LayerCsv csv(directory);
  for (const Holding& holding : all.holdings) {
    csv.Add(holding);
  }
  for (const Piece& piece : all.pieces) {
    csv.Add(piece);
  }
  for (const positions::Difference& difference : all.differences) {
    csv.Add(difference);
  }
  Print(csv.Text());
  InformOf(context, all.faults);
  return std::nullopt;
}

}  // namespace

void AddLayerCommands(CLI::App& app, Context& context) {
  auto options = std::make_shared<LayerOptions>();
  CLI::App* layers = app.add_subcommand(
      "layers", "What a client holds and sold over all years, with days and costs, as CSV");
  layers->add_option("--client", options->client, "Client code")->required();
  layers->add_option("--as-on", options->as_on, "Only what happened up to this day, dd/mm/yyyy");
  SetWork(*layers, context, [&context, options] { return Layers(context, *options); });
}

}  // namespace quorvane::cli
