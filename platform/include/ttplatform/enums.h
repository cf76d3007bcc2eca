#pragma once

// Enumerations of the trading platform. The configuration library uses them by their integer values alone.

// What an order does (buy, sell, lend, ...); -1 means that no particular operation is meant.
enum EOperationType : int { OPT_INVALID = -1 };

// How an order is priced (limit, market, at the close, ...).
enum EBrokerPriceType : int { BROKER_PRICE_INVALID = -1 };

// How a bond is traded (matched, clicked, enquired, bid, ...); 1 is the ordinary way.
enum EBondTradeType : int { BOND_TRADE_ORDINARY = 1 };
