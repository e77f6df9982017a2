// Answers the requests of one connection.
#pragma once

#include <cimxml/http/HttpHandler.h>
#include <cimxml/http/Limits.h>
#include <cimxml/http/StopSignal.h>
#include <cimxml/http/Stream.h>

namespace cimxml {

// Returns when the client closes the connection, is silent for too long or sends what cannot be
// understood, or when the server is to end. A request that has begun is answered before.
void ServeConnection(Stream& stream, const Limits& limits, const HttpHandler& handler,
                     const StopSignal& stop, Client client);

// Answers with a response whatever the client sends, and ends the connection.
void RefuseConnection(Stream& stream, const HttpResponse& response, Deadline deadline);

}  // namespace cimxml
