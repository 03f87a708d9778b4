-- SPDX-FileCopyrightText: The Obelmark developers
-- SPDX-License-Identifier: GPL-3.0-or-later
-- The entries that the lookup tables of an empty collection start with. Sellers are the collector's own: none.
--
-- The lists show in the order of their text. The columns ...sort stay empty here; the program fills them.

begin;

-- Grades: the adjective alone for a coin graded by eye, then the points of the 70-point scale that go with it.
-- The leading number is the lowest such point; it keeps the list in the order of the grades.
insert into condition (Condesc) values
    ('01 Poor'),                ('01 Poor (PO-1)'),
    ('02 Fair'),                ('02 Fair (FR-2)'),
    ('03 About Good'),          ('03 About Good (AG-3)'),
    ('04 Good'),                ('04 Good (G-4)'),               ('06 Good (G-6)'),
    ('08 Very Good'),           ('08 Very Good (VG-8)'),         ('10 Very Good (VG-10)'),
    ('12 Fine'),                ('12 Fine (F-12)'),              ('15 Fine (F-15)'),
    ('20 Very Fine'),           ('20 Very Fine (VF-20)'),        ('25 Very Fine (VF-25)'),
    ('30 Very Fine (VF-30)'),   ('35 Very Fine (VF-35)'),
    ('40 Extremely Fine'),      ('40 Extremely Fine (EF-40)'),   ('45 Extremely Fine (EF-45)'),
    ('50 About Uncirculated'),  ('50 About Uncirculated (AU-50)'),
    ('53 About Uncirculated (AU-53)'), ('55 About Uncirculated (AU-55)'), ('58 About Uncirculated (AU-58)'),
    ('60 Uncirculated'),        ('63 Choice Uncirculated'),      ('65 Gem Uncirculated'),
    ('60 Mint State (MS-60)'),  ('61 Mint State (MS-61)'),       ('62 Mint State (MS-62)'),
    ('63 Mint State (MS-63)'),  ('64 Mint State (MS-64)'),       ('65 Mint State (MS-65)'),
    ('66 Mint State (MS-66)'),  ('67 Mint State (MS-67)'),       ('68 Mint State (MS-68)'),
    ('69 Mint State (MS-69)'),  ('70 Mint State (MS-70)'),
    ('Proof'),
    ('Proof (PF-60)'), ('Proof (PF-61)'), ('Proof (PF-62)'), ('Proof (PF-63)'), ('Proof (PF-64)'),
    ('Proof (PF-65)'), ('Proof (PF-66)'), ('Proof (PF-67)'), ('Proof (PF-68)'), ('Proof (PF-69)'),
    ('Proof (PF-70)'),
    ('Proof, impaired'),
    ('Cleaned'), ('Damaged'), ('Holed or mounted'), ('Ungraded');

insert into format (fordesc) values
    ('2x2 cardboard flip'), ('2x2 plastic flip'), ('Album page'), ('Bag, mint-sewn'), ('Blister card'),
    ('Capsule'), ('Cabinet tray'), ('Coin folder'), ('First-day cover'), ('Mint set packaging'),
    ('Paper envelope'), ('Presentation case'), ('Proof set packaging'), ('Raw (no holder)'), ('Roll, paper'),
    ('Roll, plastic tube'), ('Slab (grading service)'), ('Snap-lock holder');

insert into category (catdesc) values
    ('Ancient'), ('Medieval'), ('Early modern'), ('Circulation'), ('Commemorative'), ('Bullion'), ('Mint set'),
    ('Proof set'), ('Pattern'), ('Token'), ('Trade coin'), ('Siege and emergency money'), ('Medal'),
    ('Non-circulating legal tender'), ('Replica');

insert into type (typdesc) values
    ('Business strike'), ('Brilliant uncirculated'), ('Proof'), ('Prooflike'), ('Reverse proof'), ('Specimen'),
    ('Hammered'), ('Milled'), ('Cast'), ('Cob'), ('Bent bar'), ('Restrike'), ('Overstrike'), ('Counterstamped'),
    ('Mule'), ('Piedfort'), ('Off-metal strike'), ('Trial strike'), ('Bimetallic'), ('Coloured'), ('Holed'),
    ('Polygonal'), ('Cut');

-- Mints, with the mark by which their coins are told where there is a usual one.
insert into mint (mindesc) values
    -- of antiquity and the Middle Ages
    ('Alexandria'), ('Amphipolis'), ('Antioch'), ('Aquileia'), ('Arles'), ('Athens'), ('Babylon'), ('Baghdad'),
    ('Carthage'), ('Constantinople'), ('Córdoba'), ('Corinth'), ('Cyzicus'), ('Damascus'), ('Ephesus'),
    ('Heraclea'), ('Jerusalem'), ('Lugdunum (Lyon)'), ('Moving military mint'), ('Nicomedia'), ('Pella'),
    ('Ravenna'), ('Rome, ancient'), ('Sardis'), ('Sirmium'), ('Sis'), ('Siscia'), ('Syracuse'), ('Tarentum'),
    ('Thessalonica'), ('Ticinum'), ('Trier'), ('Wasit'),
    -- Britain and Ireland
    ('Birmingham (Heaton, H)'), ('Birmingham (King''s Norton, KN)'), ('Birmingham (Soho)'), ('Canterbury'),
    ('Dublin'), ('Durham'), ('Edinburgh'), ('Lincoln'), ('London'), ('Sandyford'), ('Winchester'), ('York'),
    ('Royal Mint, Llantrisant'), ('Royal Mint, London'), ('Tower Mint, London'),
    -- France and the Low Countries
    ('Bordeaux (K)'), ('Brussels'), ('Lille (W)'), ('Limoges (I)'), ('Lyon (D)'), ('Marseille (MA)'),
    ('Paris (A)'), ('Pessac'), ('Perpignan (Q)'), ('Rouen (B)'), ('Strasbourg (BB)'), ('Toulouse (M)'),
    ('Antwerp'), ('Utrecht'),
    -- Germany, Austria, Switzerland
    ('Berlin (A)'), ('Hannover (B)'), ('Frankfurt am Main (C)'), ('Munich (D)'), ('Dresden (E)'),
    ('Muldenhütten (E)'), ('Stuttgart (F)'), ('Karlsruhe (G)'), ('Darmstadt (H)'), ('Hamburg (J)'),
    ('Günzburg'), ('Hall in Tirol'), ('Vienna'), ('Bern (B)'),
    -- northern Europe
    ('Copenhagen'), ('Helsinki'), ('Kongsberg'), ('Stockholm'),
    -- southern Europe
    ('Athens (modern)'), ('Barcelona'), ('Florence'), ('Lisbon'), ('Madrid (M)'), ('Milan (M)'), ('Naples'),
    ('Rome (R)'), ('Seville (S)'), ('Segovia'), ('Turin'), ('Venice'), ('Zecca Vaticana'),
    -- eastern Europe
    ('Belgrade'), ('Bucharest'), ('Budapest (BP)'), ('Jáchymov'), ('Kaunas'), ('Kraków'), ('Kremnica (K, KB)'),
    ('Kutná Hora'), ('Prague'), ('Sofia'), ('Warsaw (MW)'), ('Zagreb'),
    ('Ekaterinburg (ЕМ)'), ('Leningrad (Л)'), ('Moscow (ММД)'), ('St. Petersburg (СПБ)'),
    -- the Near East and Africa
    ('Cairo'), ('Constantinople (Istanbul)'), ('Fez'), ('Holon'), ('Pretoria'), ('Tehran'), ('Addis Ababa'),
    -- South and South-East Asia
    ('Bombay (Mumbai)'), ('Calcutta (Kolkata)'), ('Hyderabad'), ('Lahore (L)'), ('Madras (Chennai)'), ('Noida'),
    ('Surat'), ('Bangkok'), ('Hanoi'), ('Jakarta'), ('Kathmandu'), ('Kuala Lumpur'), ('Mandalay'),
    ('Manila (M)'), ('Singapore'),
    -- East Asia
    ('Beijing'), ('Canton (Guangzhou)'), ('Edo'), ('Gyeongsan'), ('Hiroshima'), ('Hong Kong'), ('Lhasa (Tapchi)'),
    ('Nanking'), ('Osaka'), ('Seoul'), ('Shanghai'), ('Shenyang'), ('Tientsin'), ('Wuchang'),
    -- North America
    ('Carson City (CC)'), ('Charlotte (C)'), ('Dahlonega (D)'), ('Denver (D)'), ('New Orleans (O)'),
    ('Philadelphia (P)'), ('San Francisco (S)'), ('West Point (W)'), ('Ottawa (C)'), ('Winnipeg'),
    -- Latin America
    ('Bogotá'), ('Buenos Aires'), ('Durango (Do)'), ('Guadalajara (Ga)'), ('Guanajuato (Go)'), ('Guatemala (NG)'),
    ('Lima'), ('Mexico City (Mo)'), ('Popayán'), ('Potosí (PTS)'), ('Rio de Janeiro (R)'), ('Bahia (B)'),
    ('San Luis Potosí (Pi)'), ('Santiago (So)'), ('Zacatecas (Zs)'), ('Havana'),
    -- Oceania
    ('Canberra'), ('Melbourne (M)'), ('Perth (P)'), ('Sydney (S)');

insert into country (coudesc) values
    -- present countries
    ('Afghanistan'), ('Albania'), ('Algeria'), ('Andorra'), ('Angola'), ('Antigua and Barbuda'), ('Argentina'),
    ('Armenia'), ('Australia'), ('Austria'), ('Azerbaijan'), ('Bahamas'), ('Bahrain'), ('Bangladesh'),
    ('Barbados'), ('Belarus'), ('Belgium'), ('Belize'), ('Benin'), ('Bhutan'), ('Bolivia'),
    ('Bosnia and Herzegovina'), ('Botswana'), ('Brazil'), ('Brunei'), ('Bulgaria'), ('Burkina Faso'), ('Burundi'),
    ('Cambodia'), ('Cameroon'), ('Canada'), ('Cape Verde'), ('Central African Republic'), ('Chad'), ('Chile'),
    ('China'), ('Colombia'), ('Comoros'), ('Congo, Democratic Republic'), ('Congo, Republic'), ('Costa Rica'),
    ('Côte d''Ivoire'), ('Croatia'), ('Cuba'), ('Cyprus'), ('Czech Republic'), ('Denmark'), ('Djibouti'),
    ('Dominica'), ('Dominican Republic'), ('Ecuador'), ('Egypt'), ('El Salvador'), ('Equatorial Guinea'),
    ('Eritrea'), ('Estonia'), ('Eswatini'), ('Ethiopia'), ('Fiji'), ('Finland'), ('France'), ('Gabon'), ('Gambia'),
    ('Georgia'), ('Germany'), ('Ghana'), ('Greece'), ('Grenada'), ('Guatemala'), ('Guinea'), ('Guinea-Bissau'),
    ('Guyana'), ('Haiti'), ('Honduras'), ('Hungary'), ('Iceland'), ('India'), ('Indonesia'), ('Iran'), ('Iraq'),
    ('Ireland'), ('Israel'), ('Italy'), ('Jamaica'), ('Japan'), ('Jordan'), ('Kazakhstan'), ('Kenya'),
    ('Kiribati'), ('Kosovo'), ('Kuwait'), ('Kyrgyzstan'), ('Laos'), ('Latvia'), ('Lebanon'), ('Lesotho'),
    ('Liberia'), ('Libya'), ('Liechtenstein'), ('Lithuania'), ('Luxembourg'), ('Madagascar'), ('Malawi'),
    ('Malaysia'), ('Maldives'), ('Mali'), ('Malta'), ('Marshall Islands'), ('Mauritania'), ('Mauritius'),
    ('Mexico'), ('Micronesia'), ('Moldova'), ('Monaco'), ('Mongolia'), ('Montenegro'), ('Morocco'),
    ('Mozambique'), ('Myanmar'), ('Namibia'), ('Nauru'), ('Nepal'), ('Netherlands'), ('New Zealand'),
    ('Nicaragua'), ('Niger'), ('Nigeria'), ('North Korea'), ('North Macedonia'), ('Norway'), ('Oman'),
    ('Pakistan'), ('Palau'), ('Palestine'), ('Panama'), ('Papua New Guinea'), ('Paraguay'), ('Peru'),
    ('Philippines'), ('Poland'), ('Portugal'), ('Qatar'), ('Romania'), ('Russia'), ('Rwanda'),
    ('Saint Kitts and Nevis'), ('Saint Lucia'), ('Saint Vincent and the Grenadines'), ('Samoa'), ('San Marino'),
    ('São Tomé and Príncipe'), ('Saudi Arabia'), ('Senegal'), ('Serbia'), ('Seychelles'), ('Sierra Leone'),
    ('Singapore'), ('Slovakia'), ('Slovenia'), ('Solomon Islands'), ('Somalia'), ('South Africa'),
    ('South Korea'), ('South Sudan'), ('Spain'), ('Sri Lanka'), ('Sudan'), ('Suriname'), ('Sweden'),
    ('Switzerland'), ('Syria'), ('Taiwan'), ('Tajikistan'), ('Tanzania'), ('Thailand'), ('Timor-Leste'), ('Togo'),
    ('Tonga'), ('Trinidad and Tobago'), ('Tunisia'), ('Turkey'), ('Turkmenistan'), ('Tuvalu'), ('Uganda'),
    ('Ukraine'), ('United Arab Emirates'), ('United Kingdom'), ('United States'), ('Uruguay'), ('Uzbekistan'),
    ('Vanuatu'), ('Vatican City'), ('Venezuela'), ('Vietnam'), ('Yemen'), ('Zambia'), ('Zimbabwe'),
    -- dependencies and unions with coins of their own
    ('Alderney'), ('Aruba'), ('Bermuda'), ('British Virgin Islands'), ('Cayman Islands'), ('Central African States'),
    ('Cook Islands'), ('Curaçao'), ('East Caribbean States'), ('Falkland Islands'), ('Faroe Islands'),
    ('French Polynesia'), ('Gibraltar'), ('Greenland'), ('Guernsey'), ('Hong Kong'), ('Isle of Man'), ('Jersey'),
    ('Macau'), ('Netherlands Antilles'), ('New Caledonia'), ('Niue'), ('Pitcairn Islands'), ('Puerto Rico'),
    ('Réunion'), ('Saint Helena and Ascension'), ('Saint Pierre and Miquelon'), ('Tokelau'),
    ('Turks and Caicos Islands'), ('West African States'),
    -- issuers of antiquity and the Middle Ages
    ('Abbasid Caliphate'), ('Achaemenid Persia'), ('Aksum'), ('Ancient Greece'), ('Ayyubid Sultanate'),
    ('Bactria'), ('Bohemia'), ('Byzantine Empire'), ('Carthage'), ('Celtic tribes'), ('Chinese Empire'),
    ('Cilician Armenia'), ('Crusader States'), ('Delhi Sultanate'), ('England'), ('Florence'), ('Genoa'),
    ('Golden Horde'), ('Gupta Empire'), ('Indo-Greek Kingdom'), ('Judaea'), ('Kushan Empire'), ('Lydia'),
    ('Macedonian Kingdom'), ('Mamluk Sultanate'), ('Mongol Empire'), ('Parthian Empire'), ('Ptolemaic Egypt'),
    ('Roman Empire'), ('Roman Provinces'), ('Roman Republic'), ('Sasanian Empire'), ('Scotland'),
    ('Seleucid Empire'), ('Seljuk Sultanate of Rum'), ('Sur Empire'), ('Umayyad Caliphate'), ('Venice'),
    ('Visigothic Kingdom'), ('Vijayanagara Empire'),
    -- issuers of later times
    ('Annam'), ('Austria-Hungary'), ('Baden'), ('Batavian Republic'), ('Bavaria'), ('Belgian Congo'), ('Biafra'),
    ('British East Africa'), ('British Honduras'), ('British India'), ('British North Borneo'),
    ('British West Africa'), ('Brunswick'), ('Burma'), ('Central American Republic'), ('Ceylon'),
    ('Confederate States'), ('Congo Free State'), ('Czechoslovakia'), ('Danish West Indies'),
    ('Danzig, Free City'), ('Dutch Republic'), ('East Africa'), ('East Germany'), ('Frankfurt, Free City'),
    ('French Equatorial Africa'), ('French Indochina'), ('French West Africa'), ('German East Africa'),
    ('German Empire'), ('German New Guinea'), ('Germany, Third Reich'), ('Germany, Weimar Republic'),
    ('Great Britain'), ('Hamburg'), ('Hannover'), ('Hawaii'), ('Hyderabad'), ('India, princely states'),
    ('Italian Somaliland'), ('Katanga'), ('Korea, Joseon'), ('Korean Empire'), ('Malaya'), ('Malaya and British Borneo'),
    ('Manchukuo'), ('Mewar'), ('Mughal Empire'), ('Netherlands East Indies'), ('New Guinea'), ('New Spain'),
    ('Newfoundland'), ('Orange Free State'), ('Order of Malta'), ('Ottoman Empire'), ('Palestine, British Mandate'),
    ('Papal States'), ('Persia'), ('Portuguese India'), ('Prussia'), ('Rhodesia'), ('Rhodesia and Nyasaland'),
    ('Russian Empire'), ('Salzburg'), ('Sarawak'), ('Sardinia'), ('Saxony'), ('Siam'), ('South Arabia'),
    ('South African Republic (ZAR)'), ('South Vietnam'), ('Southern Rhodesia'), ('Soviet Union'),
    ('Straits Settlements'), ('Texas'), ('Tibet'), ('Travancore'), ('Tuscany'), ('Two Sicilies'),
    ('United Arab Republic'), ('Westphalia'), ('Württemberg'), ('Yugoslavia'), ('Zanzibar');

commit;
