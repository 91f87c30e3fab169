#include "library/TavikEnums.h"

#include "simulator/boundary/EnumTexts.h"

namespace TavikLibrary {

namespace {

const TavikSimulator::EnumText<eNetSpeed> Speeds[] = {
    {eNetSpeed::Low, "Low"},
    {eNetSpeed::Medium, "Medium"},
    {eNetSpeed::High, "High"},
    {eNetSpeed::UltraHigh, "Ultra High"},
};

const TavikSimulator::EnumText<eNetworkType> NetworkTypes[] = {
    {eNetworkType::Usb, "USB"},
    {eNetworkType::Ethernet, "Ethernet"},
    {eNetworkType::Serial, "Serial"},
};

const TavikSimulator::EnumText<eModuleType> ModuleTypes[] = {
    {eModuleType::Unknown, "Unknown"}, {eModuleType::KX, "KX"},       {eModuleType::RN, "RN"},
    {eModuleType::QTA, "QTA"},         {eModuleType::HVX, "HVX"},     {eModuleType::SWAX, "SWAX"},
    {eModuleType::BW, "BW"},           {eModuleType::BWR, "BWR"},     {eModuleType::BWK, "BWK"},
    {eModuleType::RLK, "RLK"},         {eModuleType::SWAX2, "SWAX2"}, {eModuleType::PNX, "PNX"},
};

} // namespace

std::string eNetSpeed_ToString(eNetSpeed speed) {
    return TavikSimulator::TextOf(speed, Speeds, "speed");
}

eNetSpeed eNetSpeed_FromString(std::string text) {
    return TavikSimulator::ValueOf(text, Speeds, "network speed");
}

std::string eNetworkType_ToString(eNetworkType type) {
    return TavikSimulator::TextOf(type, NetworkTypes, "network type");
}

std::string eModuleType_ToString(eModuleType type) {
    return TavikSimulator::TextOf(type, ModuleTypes, "module type");
}

std::string eTavikErrors_ToString(eTavikErrors error) {
    return TavikSimulator::ErrorName(static_cast<int>(error));
}

} // namespace TavikLibrary
