#pragma once
// What the file of an app needs. It ends with the line that lets hosts.cpp make its class:
//
//     template std::unique_ptr<Host> MakeHost<Douyin>();

#include "hosts/host.hpp"
#include "hosts/host_class.hpp"
#include "hosts/invocation.hpp"

namespace sim::hosts {

template <class App> std::unique_ptr<Host> MakeHost() {
    return std::make_unique<App>();
}

} // namespace sim::hosts
