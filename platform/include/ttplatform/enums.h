#pragma once

// Enumerations of the trading platform. The configuration library uses only their integer values.

// What an order does (buy, sell, lend, ...); -1 means no particular operation.
enum EOperationType : int { OPT_INVALID = -1 };

// How an order is priced (limit, market, at the close, ...).
enum EBrokerPriceType : int { BROKER_PRICE_INVALID = -1 };

// How a bond is traded (matched, clicked, enquired, bid, ...); 1 is ordinary trading.
enum EBondTradeType : int { BOND_TRADE_ORDINARY = 1 };
