// The least that an HTTP server by Boost.Beast can do: one thread, coroutines, and the same answer
// to every request. What `bmci2c serve` is held against.
//
//     bench_bare_server BODY    # prints its port; serves the file's text on 127.0.0.1 until killed
// clang-format off: Asio lacks this one.
#include <utility>
// clang-format on

#include <boost/asio/co_spawn.hpp>
#include <boost/asio/detached.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/use_awaitable.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http.hpp>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>

namespace {

namespace asio = boost::asio;
namespace http = boost::beast::http;
using asio::ip::tcp;

asio::awaitable<void> Serve(tcp::socket socket, const std::string& body) {
    boost::beast::tcp_stream stream(std::move(socket));
    stream.socket().set_option(tcp::no_delay(true));
    boost::beast::flat_buffer buffer;
    for (;;) {
        http::request<http::string_body> request;
        co_await http::async_read(stream, buffer, request, asio::use_awaitable);
        http::response<http::string_body> response(http::status::ok, request.version());
        response.set(http::field::content_type, "application/xml; charset=utf-8");
        response.set("CIMOperation", "MethodResponse");
        response.keep_alive(request.keep_alive());
        response.body() = body;
        response.prepare_payload();
        co_await http::async_write(stream, response, asio::use_awaitable);
    }
}

asio::awaitable<void> Accept(tcp::acceptor& acceptor, const std::string& body) {
    for (;;) {
        tcp::socket socket = co_await acceptor.async_accept(asio::use_awaitable);
        asio::co_spawn(acceptor.get_executor(), Serve(std::move(socket), body), asio::detached);
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: bench_bare_server BODY\n";
        return 64;
    }
    std::ifstream file(argv[1], std::ios::binary);
    const std::string body{std::istreambuf_iterator<char>(file), {}};
    asio::io_context io(1);
    tcp::acceptor acceptor(io, {asio::ip::address_v4::loopback(), 0});
    std::cout << acceptor.local_endpoint().port() << std::endl;
    asio::co_spawn(io, Accept(acceptor, body), asio::detached);
    io.run();
}
