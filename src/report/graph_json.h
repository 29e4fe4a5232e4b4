// What a graph display holds, as JSON.
#pragma once

#include "platform/graph/graph.h"
#include "report/json_writer.h"

namespace tolmer {

// One object: settings as given to the graph, points, the overlay's calls in order, the plot area.
void writeGraph(JsonWriter& json, const Graph& graph);

}  // namespace tolmer
