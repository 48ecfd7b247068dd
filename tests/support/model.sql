-- A small catalogue: two types that can be bought and one that can't, every wire type and every meaning, two banks with
-- commands of their own, bit fields that share a byte, parameters that live in RAM only (write command 0).
BEGIN;
INSERT INTO tbInfoDatabase VALUES ('1.0.7');
INSERT INTO tbParamType VALUES (1, 'STRING'), (2, 'ENUM'), (3, 'REAL'), (4, 'TIME_H'), (5, 'TIME_HM'), (6, 'TIME_HMS');
INSERT INTO tbInstMem VALUES (1, 'STATUS', '1', '2', 0, 64), (2, 'SETTINGS', '17', '18', 64, 96);

INSERT INTO tbInstrument VALUES (1, 'KT100', '10', 0), (2, 'KT200', '2A', 1), (3, 'ALIEN', NULL, NULL);
INSERT INTO tbInstrumentLanguage VALUES
 ('KT100', 'EN', 'Cold room'), ('KT100', 'IT', 'Cella'), ('KT100', 'RU', 'Камера'),
 ('KT200', 'EN', 'Showcase'), ('KT200', 'IT', 'Vetrina'), ('KT200', 'RU', 'Витрина'),
 ('ALIEN', 'EN', 'Unknown'), ('ALIEN', 'IT', 'Sconosciuto'), ('ALIEN', 'RU', 'Неизвестный');

-- G04 holds no parameter.
INSERT INTO tbParamGroup VALUES ('G01', 1), ('G02', 1), ('G03', 1), ('G04', 1), ('G11', 2), ('G12', 2);
INSERT INTO tbParamGroupLanguage VALUES
 ('G01', 'EN', 'Measures'), ('G01', 'IT', 'Misure'), ('G01', 'RU', 'Измерения'),
 ('G02', 'EN', 'States'), ('G02', 'IT', 'Stati'), ('G02', 'RU', 'Состояния'),
 ('G03', 'EN', 'Times'), ('G03', 'IT', 'Tempi'), ('G03', 'RU', 'Время'),
 ('G04', 'EN', 'Nothing'), ('G04', 'IT', 'Niente'), ('G04', 'RU', 'Ничего'),
 ('G11', 'EN', 'Settings'), ('G11', 'IT', 'Regolazioni'), ('G11', 'RU', 'Настройки'),
 ('G12', 'EN', 'Service'), ('G12', 'IT', 'Servizio');

INSERT INTO tbParam (mID, mKeyParGroup, mKeyType, mTag, mDP, mUnit, mDftValue, mMemBank, mAddr, mWriteAddr, mWriteCmd,
                     mType, mSize, mBitFirst, mBitCount, mLW, mHW, mLR, mHR, mLL, mHL, mIDCopy, mEnable) VALUES
 ('P0101', 'G01', 3, 'T1',  '0.0',   '°C',  '12.3',     1,  0,  0, '0',  'BYTE',   1, 0, 0, 0, 255, 0, 25.5, 5, 25,               NULL,       0),
 ('P0102', 'G01', 3, 'T2',  '0',     '°C',  '-10',      1,  1,  0, '0',  'S_BYTE', 1, 0, 0, -128, 127, -128, 127, -50, 100,      NULL,       0),
 ('P0103', 'G01', 3, 'HUM', '0.0',   '%',   '45.6',     1,  2,  0, '0',  'BCD',    2, 0, 0, 0, 999, 0, 99.9, 0, 90,              NULL,       0),
 ('P0104', 'G01', 3, 'PR1', '0.0',   'bar', '466',      1,  4,  0, '0',  'WORD_L', 2, 0, 0, 0, 65535, 0, 6553.5, 0, 6000,        NULL,       0),
 ('P0105', 'G01', 3, 'PR2', '#,##0', NULL,  '1234',     1,  6,  0, '0',  'WORD_H', 2, 0, 0, 0, 65535, 0, 6553.5, 0, 6000,        NULL,       0),
 ('P0106', 'G01', 3, 'E1',  '0',     'kW',  '7',        1,  8,  0, '0',  'INT_L',  2, 0, 0, -32768, 32767, -32768, 32767, -100, 100, NULL,   0),
 ('P0107', 'G01', 3, 'E2',  NULL,    'kW',  '8',        1, 10,  0, '0',  'INT_H',  2, 0, 0, -32768, 32767, -32768, 32767, -100, 100, NULL,   0),
 ('P0201', 'G02', 2, 'MOD', NULL,    NULL,  '1',        2, 64, 24, '33', 'BYTE',   1, 0, 0, 0, 255, 0, 255, 0, 2,                 'AA_BB_01', -1),
 ('P0202', 'G02', 2, 'FAN', NULL,    NULL,  '3',        2, 65, 25, '33', 'BIT',    1, 2, 3, 0, 7, 0, 7, 0, 7,                     'AA_BB_02', -1),
 ('P0203', 'G02', 2, 'LGT', NULL,    NULL,  '0',        2, 65, 25, '33', 'BIT',    1, 0, 1, 0, 1, 0, 1, 0, 1,                     'AA_BB_03', -1),
 ('P0204', 'G02', 1, 'TXT', NULL,    NULL,  'ROOM 1',   2, 66, 26, '33', 'STRING', 8, 0, 0, 0, 0, 0, 0, 0, 0,                     NULL,       -1),
 ('P0301', 'G03', 4, 'DEF', NULL,    NULL,  '02:00:00', 2, 74, 34, '33', 'BYTE',   1, 0, 0, 0, 255, 0, 76500, 0, 76500,           NULL,       -1),
 ('P0302', 'G03', 5, 'NGT', NULL,    NULL,  '02:30:00', 2, 75, 35, '33', 'BYTE',   1, 0, 0, 0, 255, 0, 76500, 0, 76500,           NULL,       -1),
 ('P0303', 'G03', 6, 'RUN', NULL,    NULL,  '01:02:00', 2, 76,  0, '0',  'WORD_L', 2, 0, 0, 0, 65535, 0, 65535, 0, 65535,         NULL,       -1),
 ('P1101', 'G11', 3, 'SET', '0.0',   '°C',  '4.5',      2, 64, 24, '33', 'BYTE',   1, 0, 0, 0, 255, 0, 25.5, 0, 25,               'AA_CC_01', -1),
 ('P1102', 'G11', 3, 'DIF', '0',     'K',   '300',      2, 65, 25, '33', 'WORD_L', 2, 0, 0, 0, 65535, 0, 65535, 0, 60000,         'AA_CC_02', -1),
 ('P1103', 'G11', 3, 'OFS', '0',     NULL,  '100',      2, 67, 27, '33', 'WORD_H', 2, 0, 0, 0, 65535, 0, 65535, 0, 60000,         NULL,       -1),
 ('P1201', 'G12', 3, 'CNT', '0',     NULL,  '1',        1,  1,  0, '0',  'BYTE',   1, 0, 0, 0, 255, 0, 255, 0, 255,               NULL,       0);

-- P1102 has no Russian row; P1103 has an apostrophe in it.
INSERT INTO tbParamLanguage SELECT mID, 'EN', 'EN ' || mTag FROM tbParam;
INSERT INTO tbParamLanguage SELECT mID, 'IT', 'IT ' || mTag FROM tbParam;
INSERT INTO tbParamLanguage SELECT mID, 'RU', 'РУ ' || mTag FROM tbParam WHERE mID <> 'P1102';
UPDATE tbParamLanguage SET mDesc = 'Room''s offset' WHERE mID = 'P1103' AND mKeyLang = 'EN';

INSERT INTO tbParamEnum VALUES
 (1, 'P0201', 0), (2, 'P0201', 1), (3, 'P0202', 0), (4, 'P0202', 3), (5, 'P0203', 0), (6, 'P0203', 1), (7, 'P0201', -1);
INSERT INTO tbParamEnumLanguage VALUES
 (1, 'EN', 'Off'), (1, 'IT', 'Spento'), (1, 'RU', 'Выкл'), (2, 'EN', 'On'), (2, 'IT', 'Acceso'), (2, 'RU', 'Вкл'),
 (3, 'EN', 'Stop'), (3, 'IT', 'Fermo'), (3, 'RU', 'Стоп'), (4, 'EN', 'Full'), (4, 'IT', 'Massimo'), (4, 'RU', 'Полный'),
 (5, 'EN', 'Dark'), (5, 'IT', 'Buio'), (5, 'RU', 'Темно'), (6, 'EN', 'Lit'), (6, 'IT', 'Luce'), (6, 'RU', 'Свет'),
 (7, 'EN', 'Broken'), (7, 'IT', 'Guasto'), (7, 'RU', 'Неисправен');
INSERT INTO tbParamCopyLanguage VALUES
 ('AA_BB_01', 'EN', 'States'), ('AA_BB_01', 'IT', 'Stati'), ('AA_BB_01', 'RU', 'Состояния'),
 ('AA_CC_01', 'EN', 'Set points'), ('AA_CC_01', 'IT', 'Set point'), ('AA_CC_01', 'RU', 'Уставки');
COMMIT;
