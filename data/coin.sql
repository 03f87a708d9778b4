-- SPDX-FileCopyrightText: The Obelmark developers
-- SPDX-License-Identifier: GPL-3.0-or-later
-- The coin database as delivered: tables, indexes and triggers; no coins.
--
-- Plain SQLite: no function, collation or extension of the program's own stands in the schema, so any SQLite tool
-- can read, check, change and vacuum the file.
--
-- Declared types: smallint and integer are whole numbers of 16 and 32 bits; boolean is 1 or 0; money is a whole
-- count of ten-thousandths (2.50 is 25000); date is ISO text (1852-05-03).
--
-- A column Xsort beside a text column X holds X in the form that it is ordered by: case-folded, decomposed,
-- without accents. The program writes it; when another tool changes X, a trigger empties it, and the program
-- fills it again when it next opens the file. The small "stale" indexes tell it at once which rows those are.

-- The file's mark ("Obel" in ASCII) and version. A new version has a migration in the program, too.
pragma application_id = 1331848556;
pragma user_version = 2;

create table Coin (
    coinid         integer primary key autoincrement,
    descr          varchar(255) collate nocase,
    catnum         varchar(255) collate nocase,
    catsort        varchar(20) collate nocase,  -- the catalogue number's digits, right-justified: orders 200 before 1000
    face           money,
    Year           smallint,
    wantlist       boolean,
    quantity       integer,
    conid          integer,
    couid          integer,
    minid          integer,
    catid          integer,
    typid          integer,
    forid          integer,
    SerNum         varchar(255) collate nocase,
    Metal          varchar(255) collate nocase,
    Errors         varchar(255) collate nocase,
    issuedate      date,
    bouid          integer,
    pricepaid      money,
    totalpaid      money,
    PurchaseDate   date,
    catvalue       money,
    totalval       money,
    SoldDate       date,
    forsale        boolean,
    sold           boolean,
    priceask       money,
    totalsales     money,
    notes          text collate nocase,
    misc1          varchar(255) collate nocase,
    misc2          varchar(255) collate nocase,
    descrsort      text,
    catnumsort     text
);
-- The three sort orders of the main window.
create index coin_by_descr on Coin (descrsort);
create index coin_by_catnum on Coin (catsort, catnumsort);
create index coin_by_year on Coin (Year);
-- "Is this entry in use?" for the seven lookup tables.
create index coin_by_conid on Coin (conid);
create index coin_by_couid on Coin (couid);
create index coin_by_minid on Coin (minid);
create index coin_by_catid on Coin (catid);
create index coin_by_typid on Coin (typid);
create index coin_by_forid on Coin (forid);
create index coin_by_bouid on Coin (bouid);
create index coin_descr_stale on Coin (coinid) where descrsort is null and descr is not null;
create index coin_catnum_stale on Coin (coinid) where catnumsort is null and catnum is not null;
create index coin_catsort_stale on Coin (coinid) where catsort is null and catnum is not null;
create trigger coin_descr_changed after update of descr on Coin when new.descr is not old.descr
begin
    update Coin set descrsort = null where coinid = new.coinid;
end;
create trigger coin_catnum_changed after update of catnum on Coin when new.catnum is not old.catnum
begin
    update Coin set catnumsort = null, catsort = null where coinid = new.coinid;
end;

create table category (
    catid          integer primary key autoincrement,
    catdesc        varchar(255) collate nocase,
    catdescsort    text
);
create index category_by_catdesc on category (catdescsort);
create index category_catdesc_stale on category (catid) where catdescsort is null and catdesc is not null;
create trigger category_catdesc_changed after update of catdesc on category when new.catdesc is not old.catdesc
begin
    update category set catdescsort = null where catid = new.catid;
end;

create table condition (
    conid          integer primary key autoincrement,
    Condesc        varchar(255) collate nocase,
    Condescsort    text
);
create index condition_by_Condesc on condition (Condescsort);
create index condition_Condesc_stale on condition (conid) where Condescsort is null and Condesc is not null;
create trigger condition_Condesc_changed after update of Condesc on condition when new.Condesc is not old.Condesc
begin
    update condition set Condescsort = null where conid = new.conid;
end;

create table country (
    couid          integer primary key autoincrement,
    coudesc        varchar(255) collate nocase,
    coudescsort    text
);
create index country_by_coudesc on country (coudescsort);
create index country_coudesc_stale on country (couid) where coudescsort is null and coudesc is not null;
create trigger country_coudesc_changed after update of coudesc on country when new.coudesc is not old.coudesc
begin
    update country set coudescsort = null where couid = new.couid;
end;

create table format (
    forid          integer primary key autoincrement,
    fordesc        varchar(255) collate nocase,
    fordescsort    text
);
create index format_by_fordesc on format (fordescsort);
create index format_fordesc_stale on format (forid) where fordescsort is null and fordesc is not null;
create trigger format_fordesc_changed after update of fordesc on format when new.fordesc is not old.fordesc
begin
    update format set fordescsort = null where forid = new.forid;
end;

create table mint (
    minid          integer primary key autoincrement,
    mindesc        varchar(255) collate nocase,
    mindescsort    text
);
create index mint_by_mindesc on mint (mindescsort);
create index mint_mindesc_stale on mint (minid) where mindescsort is null and mindesc is not null;
create trigger mint_mindesc_changed after update of mindesc on mint when new.mindesc is not old.mindesc
begin
    update mint set mindescsort = null where minid = new.minid;
end;

create table type (
    typid          integer primary key autoincrement,
    typdesc        varchar(255) collate nocase,
    typdescsort    text
);
create index type_by_typdesc on type (typdescsort);
create index type_typdesc_stale on type (typid) where typdescsort is null and typdesc is not null;
create trigger type_typdesc_changed after update of typdesc on type when new.typdesc is not old.typdesc
begin
    update type set typdescsort = null where typid = new.typid;
end;

create table boughtfrom (
    bouid          integer primary key autoincrement,
    bouDesc        varchar(255) collate nocase,
    BouPhone       varchar(255) collate nocase,
    bounotes       text collate nocase,
    BouFav         boolean,
    bouDescsort    text
);
create index boughtfrom_by_bouDesc on boughtfrom (bouDescsort);
create index boughtfrom_bouDesc_stale on boughtfrom (bouid) where bouDescsort is null and bouDesc is not null;
create trigger boughtfrom_bouDesc_changed after update of bouDesc on boughtfrom when new.bouDesc is not old.bouDesc
begin
    update boughtfrom set bouDescsort = null where bouid = new.bouid;
end;
