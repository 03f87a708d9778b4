-- SPDX-FileCopyrightText: The Obelmark developers
-- SPDX-License-Identifier: GPL-3.0-or-later
-- The report field catalogue as delivered: the fields that custom reports and Find offer.
--
-- specid     names the field in report files: never give a number away again, never renumber
-- usewith    the main table that the field belongs to
-- Desc       caption in lists, heading of its column
-- fieldname  column of the main table or, when FileName names a lookup table, of that one; unique among all of them
-- datatype   1 text, 2 number, 3 date, 4 yes/no, 5 time
-- defwidth   inches
-- linkfield  the key that joins the lookup table: one name, or two (main table;lookup table) when they differ
-- ismemo     lists of its values are not sorted

create table RptSpec (
    specid         integer primary key check (specid between 1 and 32767),
    usewith        varchar(50) not null collate nocase,
    Desc           varchar(50) not null collate nocase,
    fieldname      varchar(64) not null collate nocase,
    datatype       smallint not null check (datatype between 1 and 5),
    defwidth       single,
    IsCurrency     boolean not null default 0,
    FileName       varchar(64) collate nocase,
    linkfield      varchar(129) collate nocase,
    ismemo         boolean not null default 0,
    unique (usewith, fieldname)
);

insert into RptSpec (specid, usewith, Desc, fieldname, datatype, defwidth, IsCurrency) values
    (1, 'coin', 'Description', 'descr', 1, 2.5, 0),
    (2, 'coin', 'Catalog Number', 'catnum', 1, 1.1, 0),
    (3, 'coin', 'Face Value', 'face', 2, 0.8, 1),
    (4, 'coin', 'Year', 'Year', 2, 0.5, 0),
    (5, 'coin', 'Want List', 'wantlist', 4, 0.7, 0),
    (6, 'coin', 'Quantity', 'quantity', 2, 0.7, 0),
    (7, 'coin', 'Serial Number', 'SerNum', 1, 1.2, 0),
    (8, 'coin', 'Metal Content', 'Metal', 1, 1.1, 0),
    (9, 'coin', 'Errors', 'Errors', 1, 1.5, 0),
    (10, 'coin', 'Issue Date', 'issuedate', 3, 0.9, 0),
    (11, 'coin', 'Price Paid', 'pricepaid', 2, 0.9, 1),
    (12, 'coin', 'Total Paid', 'totalpaid', 2, 0.9, 1),
    (13, 'coin', 'Purchase Date', 'PurchaseDate', 3, 1, 0),
    (14, 'coin', 'Catalog Value', 'catvalue', 2, 1, 1),
    (15, 'coin', 'Total Value', 'totalval', 2, 1, 1),
    (16, 'coin', 'Date Sold', 'SoldDate', 3, 0.9, 0),
    (17, 'coin', 'For Sale', 'forsale', 4, 0.6, 0),
    (18, 'coin', 'Sold', 'sold', 4, 0.5, 0),
    (19, 'coin', 'Selling Price', 'priceask', 2, 0.9, 1),
    (20, 'coin', 'Total Sales', 'totalsales', 2, 0.9, 1),
    (21, 'coin', 'Notes', 'notes', 1, 3, 0),
    (22, 'coin', 'Misc. 1', 'misc1', 1, 1.5, 0),
    (23, 'coin', 'Misc. 2', 'misc2', 1, 1.5, 0);

insert into RptSpec (specid, usewith, Desc, fieldname, datatype, defwidth, FileName, linkfield, ismemo) values
    (24, 'coin', 'Condition', 'Condesc', 1, 1.2, 'condition', 'conid', 0),
    (25, 'coin', 'Country', 'coudesc', 1, 1.4, 'country', 'couid', 0),
    (26, 'coin', 'Mint', 'mindesc', 1, 1.4, 'mint', 'minid', 0),
    (27, 'coin', 'Category', 'catdesc', 1, 1.2, 'category', 'catid', 0),
    (28, 'coin', 'Type', 'typdesc', 1, 1, 'type', 'typid', 0),
    (29, 'coin', 'Format', 'fordesc', 1, 1.2, 'format', 'forid', 0),
    (30, 'coin', 'Bought From', 'bouDesc', 1, 1.6, 'boughtfrom', 'bouid', 0),
    (31, 'coin', 'Seller Phone', 'BouPhone', 1, 1.2, 'boughtfrom', 'bouid', 0),
    (32, 'coin', 'Seller Notes', 'bounotes', 1, 2.5, 'boughtfrom', 'bouid', 1),
    (33, 'coin', 'Favorite Seller', 'BouFav', 4, 0.8, 'boughtfrom', 'bouid', 0);
